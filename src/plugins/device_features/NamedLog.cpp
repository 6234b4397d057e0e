#include "plugins/device_features/NamedLog.h"

#include <string>

#include "orlo/core/OwnStatuses.h"
#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/ata_smart/AtaLogs.h"
#include "orlo/features/nvme_get_log/LogFactories.h"

namespace plugin::cli {

namespace nvme_get_log = orlo::features::nvme_get_log;

orlo::core::Status makeNamedLog(const orlo::core::AttributeCollection& attributes,
                                const std::shared_ptr<orlo::core::Device>& device,
                                std::unique_ptr<nvme_get_log::NVMeGetLog>& log) {
  const std::string name = readString(attributes, orlo::core::properties::logName());
  log = nvme_get_log::makeLog(name, device, attributes);
  if (log != nullptr) return orlo::core::Status::success();
  std::string known;
  for (const auto& entry : nvme_get_log::logFactories()) {
    known += (known.empty() ? "" : ", ") + entry.first;
  }
  if (orlo::features::ata_smart::isAtaLogName(name)) {
    return orlo::core::logOfOtherProtocol(name, "NVMe", known);
  }
  return orlo::core::unknownLogName(name, known);
}

}  // namespace plugin::cli
