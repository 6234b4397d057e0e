#include "orlo/features/feature/UUID/UUIDManager.h"

#include <string>

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Logging.h"
#include "orlo/core/PropertyDescriptors.h"

namespace orlo::features::uuid {

UUIDManager::UUIDManager(const std::shared_ptr<core::Device>& device) : device(device) {}

GUIDIndexMap UUIDManager::getRegisteredGUIDs() {
  registerSupportedGUIDs(device);
  return registeredGUIDs[core::readString(device->attributes, core::properties::serialNumber())];
}

uint8_t UUIDManager::getIndex() {
  const GUIDIndexMap guids = getRegisteredGUIDs();
  for (const GUID16& guid : supportedUUIDs) {
    const auto found = guids.find(guid);
    if (found != guids.end()) {
      ORLO_LOG(info, "Found supportedUUID");
      return found->second;
    }
  }
  ORLO_LOG(info, "Could not find supportedUUID");
  return kNoUUIDIndex;
}

}  // namespace orlo::features::uuid
