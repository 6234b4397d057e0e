#pragma once

#include <cstdint>
#include <memory>

#include "orlo/features/nvme_get_log/NVMeGetLog.h"

namespace orlo::features::nvme_get_log {

// The Marketing Description log (log 221): the drive's marketing name as a text.
class NVMeGetLogMarketingDescription : public NVMeGetLog {
 public:
  // The whole 512-byte log.
  static const uint32_t defaultNumDWORDs;

  // The log is a vendor log: the manager accepts the vendor GUID in both byte orders and,
  // on some OCP drives, no UUID selection as a last resort.
  NVMeGetLogMarketingDescription(const std::shared_ptr<core::Device>& device,
                                 const core::AttributeCollection& attributes);
  ~NVMeGetLogMarketingDescription() override;

  // "Marketing String": the log's text up to its first zero byte.
  std::unique_ptr<core::xml::XmlObject> getXml() override;
};

}  // namespace orlo::features::nvme_get_log
