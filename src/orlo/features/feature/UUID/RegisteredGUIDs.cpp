#include "orlo/features/feature/UUID/RegisteredGUIDs.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "orlo/commands/nvme/Layout.h"
#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Logging.h"
#include "orlo/core/Payload.h"
#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/feature/UUID/UUIDListReader.h"
#include "orlo/features/identify/Identify.h"

namespace orlo::features::uuid {

namespace {

namespace properties = core::properties;

constexpr uint8_t kUUIDListCns = commands::nvme::layout::kCnsUuidList;
constexpr std::size_t kUUIDOffset = 16;

}  // namespace

std::map<std::string, GUIDIndexMap> registeredGUIDs;

void registerSupportedGUIDs(const std::shared_ptr<core::Device>& device) {
  if (!core::readBool(device->attributes, properties::uuidSupported())) return;
  const std::string serialNumber = core::readString(device->attributes, properties::serialNumber());
  if (registeredGUIDs.count(serialNumber) > 0) return;

  GUIDIndexMap guids{{ZeroGUID, 0}};
  core::AttributeCollection request;
  core::writeUInt8(request, properties::controllerNamespaceStructure(), kUUIDListCns);
  core::writeUInt32(request, properties::namespaceId(), 0);
  identify::Identify identify(device, request);
  identify.setIdentifyObject();
  if (!core::succeeded(identify.identify())) {
    ORLO_LOG(info, "Could not run IDENTIFY UUID");
  } else {
    ORLO_LOG(info, "IDENTIFY UUID OK");
    const core::Payload reply =
        identify.identifyObject ? identify.identifyObject->payload : core::Payload();
    const std::vector<UUIDListEntry> entries = readUUIDList(reply);
    // A GUID listed twice keeps its later index.
    for (std::size_t i = 0; i < entries.size(); ++i) {
      GUID16 guid;
      std::copy(entries[i].begin() + kUUIDOffset, entries[i].end(), guid.begin());
      guids[guid] = static_cast<uint8_t>(i + 1);
    }
  }
  registeredGUIDs[serialNumber] = guids;
}

}  // namespace orlo::features::uuid
