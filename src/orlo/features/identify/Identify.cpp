#include "orlo/features/identify/Identify.h"

#include "orlo/core/Logging.h"
#include "orlo/core/ScopeTrace.h"
#include "orlo/features/identify/ATAIdentify.h"
#include "orlo/features/identify/NVMeIdentify.h"

namespace orlo::features::identify {

using core::Status;

namespace {

Status unsupported() {
  return Status(35, "Device does not support this command set.");
}

}  // namespace

Identify::Identify(const std::shared_ptr<core::Device>& device,
                   const core::AttributeCollection& attributes)
    : IdentifyInterface(device, attributes) {
  setIdentifyObject();
}

void Identify::setIdentifyObject() {
  ORLO_SCOPE_TRACE();
  Status result = Status::success();
  identifyObject.reset();
  if (device->supportsProtocol("ATA")) {
    ORLO_LOG(info, "Drive has ATA protocol.");
    identifyObject = std::make_unique<ata::Identify>(device, attributes);
  } else if (device->supportsProtocol("NVME")) {
    ORLO_LOG(info, "Drive has NVMe protocol.");
    identifyObject = std::make_unique<nvme::Identify>(device, attributes);
  } else {
    result = unsupported();
  }
  setStatus(result);
  ORLO_LOG(info, "Status: " << result.toString());
}

Status Identify::canRun() {
  ORLO_SCOPE_TRACE();
  Status result = unsupported();
  if (identifyObject) result = identifyObject->canRun();
  setStatus(result);
  ORLO_LOG(info, "Status: " << result.toString());
  return result;
}

Status Identify::identify() {
  ORLO_SCOPE_TRACE();
  Status result = canRun();
  if (core::succeeded(result) && identifyObject) result = identifyObject->identify();
  setStatus(result);
  return result;
}

std::unique_ptr<core::xml::XmlObject> Identify::getXml() {
  if (identifyObject) return identifyObject->getXml();
  return std::make_unique<core::xml::XmlObject>();
}

}  // namespace orlo::features::identify
