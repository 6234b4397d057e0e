#include "orlo/features/identify/ATAIdentify.h"

#include "orlo/commands/ata/CheckPowerMode.h"
#include "orlo/commands/ata/IdentifyDevice.h"
#include "orlo/commands/ata/ReadDMA.h"
#include "orlo/core/PropertyDescriptors.h"
#include "orlo/core/ScopeTrace.h"
#include "orlo/features/identify/ATAIdentifyDecoder.h"

namespace orlo::features::identify::ata {

using orlo::core::Status;
namespace properties = orlo::core::properties;

Identify::Identify(const std::shared_ptr<orlo::core::Device>& device,
                   const orlo::core::AttributeCollection& attributes)
    : IdentifyInterface(device, attributes) {}

Status Identify::canRun() {
  ORLO_SCOPE_TRACE();
  Status result = Status::success();
  if (!device->supportsProtocol("ATA")) {
    result = Status(35, "Device does not support this command set.");
  } else if (orlo::core::hasAttribute(this->attributes,
                                      properties::controllerNamespaceStructure()) ||
             orlo::core::hasAttribute(this->attributes, properties::namespaceId())) {
    result = Status(10, 3, "The selected drive does not support this feature.");
  }
  return result;
}

Status Identify::identify() {
  ORLO_SCOPE_TRACE();
  Status result = canRun();
  if (!orlo::core::succeeded(result)) return result;

  if (!orlo::core::readBool(device->attributes, properties::csmi())) {
    ORLO_LOG(debug, "Attempting ReadDMA first to clear potential PIO errors");
    orlo::commands::ata::ReadDMA readDma;
    if (!orlo::core::succeeded(device->send(readDma).status)) {
      ORLO_LOG(debug, "ReadDMA failed for some reason. Trying CheckPowerMode instead");
      orlo::commands::ata::CheckPowerMode checkPowerMode;
      device->send(checkPowerMode);
    }
  }

  orlo::commands::ata::IdentifyDevice identifyDevice;
  const orlo::core::CommandRecord record = device->send(identifyDevice);
  payload = record.outputPayload;
  return record.status;
}

std::unique_ptr<orlo::core::xml::XmlObject> Identify::getXml() {
  return decodeIdentifyDevice(payload, device->attributes);
}

}  // namespace orlo::features::identify::ata
