#include "devices/NvmeProtocolResult.h"

#include "devices/NvmeStatusText.h"

namespace orlo::devices {

NvmeProtocolResult::NvmeProtocolResult(uint16_t statusField, uint32_t completionDword0)
    : statusField(statusField), completionDword0(completionDword0) {}

std::unique_ptr<core::ProtocolResult> NvmeProtocolResult::clone() const {
  return std::make_unique<NvmeProtocolResult>(*this);
}

void NvmeProtocolResult::fillStatus(core::Status& status) const {
  status = this->status();
}

core::Status NvmeProtocolResult::status() const {
  if (statusField == 0) return core::Status::success();
  core::Status problem = core::Status::nvmeCommandProblem();
  problem.setMessage("NVMe command reported a problem: " + nvmeStatusText(statusField) + ".");
  return problem;
}

}  // namespace orlo::devices
