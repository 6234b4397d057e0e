#pragma once

#include <cstdint>
#include <memory>

#include "orlo/features/nvme_get_log/NVMeGetLog.h"

namespace orlo::features::nvme_get_log {

// The Commands Supported and Effects log (log 5): which Admin and I/O commands the drive
// supports, and what each of them may change.
class NVMeGetLog_CommandsEffects : public NVMeGetLog {
 public:
  // The whole 4096-byte log.
  static const uint32_t defaultNumDWORDs;

  NVMeGetLog_CommandsEffects(const std::shared_ptr<core::Device>& device,
                             const core::AttributeCollection& attributes);
  ~NVMeGetLog_CommandsEffects() override;

  std::unique_ptr<core::xml::XmlObject> getXml() override;
};

}  // namespace orlo::features::nvme_get_log
