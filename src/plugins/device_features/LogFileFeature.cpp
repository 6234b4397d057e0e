#include "plugins/device_features/LogFileFeature.h"

#include <memory>
#include <string>

#include "orlo/core/PropertyDescriptors.h"
#include "plugins/device_features/NamedLog.h"

namespace plugin::cli {

namespace properties = orlo::core::properties;

orlo::core::AttributeCollection LogFileFeature::requiredAttributes() {
  orlo::core::AttributeCollection required;
  required.add(properties::logName());
  required.add(properties::file());
  return required;
}

orlo::core::AttributeCollection LogFileFeature::optionalAttributes() {
  orlo::core::AttributeCollection optional;
  optional.add(orlo::core::properties::namespaceId());
  return optional;
}

orlo::core::Status LogFileFeature::run() {
  orlo::core::Status status = check();
  std::unique_ptr<orlo::features::nvme_get_log::NVMeGetLog> log;
  if (orlo::core::succeeded(status)) status = makeNamedLog(attributes, device, log);
  if (orlo::core::succeeded(status)) status = log->sendCommand();
  const std::string file = readString(attributes, properties::file());
  if (orlo::core::succeeded(status)) status = log->writeBinaryToFile(file);
  if (!orlo::core::succeeded(status)) return status;
  status.setMessage("Wrote " + std::to_string(log->getBinaryData().size()) + " bytes of " +
                    readString(attributes, properties::logName()) + " to " + file + ".");
  return status;
}

}  // namespace plugin::cli
