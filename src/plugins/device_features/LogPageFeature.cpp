#include "plugins/device_features/LogPageFeature.h"

#include <memory>

#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/ata_smart/AtaLogs.h"
#include "plugins/device_features/NamedLog.h"

namespace plugin::cli {

orlo::core::AttributeCollection LogPageFeature::requiredAttributes() {
  orlo::core::AttributeCollection required;
  required.add(orlo::core::properties::logName());
  return required;
}

orlo::core::AttributeCollection LogPageFeature::optionalAttributes() {
  orlo::core::AttributeCollection optional;
  optional.add(orlo::core::properties::namespaceId());
  return optional;
}

orlo::core::Status LogPageFeature::run() {
  tree.reset();
  orlo::core::Status status = check();
  if (orlo::core::succeeded(status) && device->supportsProtocol("ATA")) {
    return orlo::features::ata_smart::decodeAtaLog(
        readString(attributes, orlo::core::properties::logName()), *device, tree);
  }
  std::unique_ptr<orlo::features::nvme_get_log::NVMeGetLog> log;
  if (orlo::core::succeeded(status)) status = makeNamedLog(attributes, device, log);
  if (orlo::core::succeeded(status)) status = log->sendCommand();
  if (orlo::core::succeeded(status)) tree = log->getXml();
  return status;
}

}  // namespace plugin::cli
