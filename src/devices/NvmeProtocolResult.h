#pragma once

#include <cstdint>
#include <memory>

#include "orlo/core/ProtocolResult.h"
#include "orlo/core/Status.h"

namespace orlo::devices {

// How an NVMe command completed: the status field (completion dword 3 without its
// phase bit) and completion dword 0.
class NvmeProtocolResult : public core::ProtocolResult {
 public:
  NvmeProtocolResult(uint16_t statusField, uint32_t completionDword0);

  std::unique_ptr<core::ProtocolResult> clone() const override;
  // The drive's reason as a status: success for a zero field, otherwise
  // "NVMe command reported a problem." with the status named in its message.
  void fillStatus(core::Status& status) const override;
  core::Status status() const;

  uint16_t statusField;
  uint32_t completionDword0;
};

}  // namespace orlo::devices
