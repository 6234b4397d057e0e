#pragma once

#include <memory>

#include "orlo/commands/ata/TaskFile.h"
#include "orlo/core/ProtocolResult.h"
#include "orlo/core/Status.h"

namespace orlo::commands::ata {

// The registers with which an ATA command completed: `feature` holds Error and
// `command` holds Status, as in a returned task file. A device gives it with a
// command's record whenever the drive returned its registers, so that a command
// that answers in them (SMART RETURN STATUS, CHECK POWER MODE) can be read.
class Completion : public core::ProtocolResult {
 public:
  explicit Completion(const TaskFile& registers);

  std::unique_ptr<core::ProtocolResult> clone() const override;
  // Success unless Status has ERR or DF set; then "Failed to retrieve data from
  // selected drive." with the error bits named in its message.
  void fillStatus(core::Status& status) const override;
  core::Status status() const;

  TaskFile registers;
};

}  // namespace orlo::commands::ata
