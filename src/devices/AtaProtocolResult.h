#pragma once

#include <memory>

#include "orlo/commands/ata/TaskFile.h"
#include "orlo/core/ProtocolResult.h"
#include "orlo/core/Status.h"

namespace orlo::devices {

// The registers with which an ATA command completed: `feature` holds Error and
// `command` holds Status, as in a returned task file.
class AtaProtocolResult : public core::ProtocolResult {
 public:
  explicit AtaProtocolResult(const commands::ata::TaskFile& registers);

  std::unique_ptr<core::ProtocolResult> clone() const override;
  // Success unless Status has ERR or DF set; then "Failed to retrieve data from
  // selected drive." with the error bits named in its message.
  void fillStatus(core::Status& status) const override;
  core::Status status() const;

  commands::ata::TaskFile registers;
};

}  // namespace orlo::devices
