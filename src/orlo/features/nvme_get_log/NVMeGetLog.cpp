#include "orlo/features/nvme_get_log/NVMeGetLog.h"

#include <fstream>

#include "orlo/commands/nvme/GetLogPage.h"
#include "orlo/core/BitField.h"
#include "orlo/core/CommandRecord.h"
#include "orlo/core/Logging.h"
#include "orlo/core/PayloadProperty.h"
#include "orlo/core/PropertyDescriptors.h"
#include "orlo/core/ScopeTrace.h"
#include "orlo/core/System.h"
#include "orlo/core/xml/XmlProperty.h"
#include "orlo/features/nvme_get_log/RetainAsynchronousEventProperty.h"
#include "orlo/features/nvme_get_log/UUIDIndexProperty.h"

namespace orlo::features::nvme_get_log {

namespace properties = core::properties;

namespace {

constexpr uint32_t kBroadcastNamespace = 0xFFFFFFFF;
// Logs from here on are vendor specific: the subclass names the UUIDs it accepts.
constexpr uint8_t kFirstVendorLogId = 192;

}  // namespace

NVMeGetLog::NVMeGetLog(const std::shared_ptr<core::Device>& device, uint8_t logId,
                       uint32_t numDWORDs, std::string logName,
                       const core::AttributeCollection& attributes)
    : Feature(attributes, core::makeSystem()),
      device(device),
      uuidManager(std::make_shared<uuid::UUIDManager>(device)) {
  core::writeUInt8(this->attributes, properties::logId(), logId);
  core::writeString(this->attributes, properties::logName(), logName);
  core::writeUInt32(this->attributes, properties::numDWORDs(), numDWORDs);
  // The flag is reset before it is read, so a log goes to the broadcast namespace; a caller
  // that wants one namespace writes NamespaceId after construction.
  core::writeUInt8(this->attributes, properties::namespaceSpecific(), 0);
  if (core::readBool(this->attributes, properties::namespaceSpecific())) {
    core::writeUInt32(this->attributes, properties::namespaceId(),
                      core::readUInt32(device->attributes, properties::namespaceId()));
  } else {
    core::writeUInt32(this->attributes, properties::namespaceId(), kBroadcastNamespace);
  }
  if (getLogId() < kFirstVendorLogId) {
    uuidManager->supportedUUIDs = {uuid::ZeroGUID, uuid::VendorGUID, uuid::VendorGUIDReversed,
                                   uuid::LogGUID, uuid::LogGUIDReversed};
  }
}

NVMeGetLog::~NVMeGetLog() = default;

core::Status NVMeGetLog::canRun() {
  core::Status result = core::Status::success();
  const bool uuidSupported = core::readBool(device->attributes, properties::uuidSupported());
  // The index is settled before any check can fail, so that a caller sees what was found.
  if (uuidSupported && !core::hasAttribute(attributes, uuidIndexProperty())) {
    core::writeUInt8(attributes, uuidIndexProperty(), uuidManager->getIndex());
  }
  const bool hasIndex = core::hasAttribute(attributes, uuidIndexProperty());
  const bool checkIndex = uuidSupported && !core::hasAttribute(attributes, properties::file());
  const uint8_t index = core::readUInt8(attributes, uuidIndexProperty());

  if (!core::readBool(device->attributes, properties::veldra())) {
    result = core::Status(10, 1, "Drive is not a Veldra SSD.");
  } else if (!device->supportsProtocol("NVME")) {
    result = core::Status(35, "Device does not support this command set.");
  } else if (!uuidSupported && hasIndex) {
    result = core::Status(10, 282, "UUID Not supported, but UUID index specified.");
  } else if (checkIndex && index == uuid::kNoUUIDIndex) {
    result = core::Status(10, 283, "Unable to retrieve UUID index.");
  } else if (checkIndex && !isAcceptedIndex(index)) {
    result = core::Status(10, 284, "Unable to retrieve log data. UUID index cannot be determined.");
  } else if (!core::hasAttribute(attributes, properties::numDWORDs())) {
    result = core::Status(10, 274, "Failed to specify number of dwords.");
  }
  setStatus(result);
  return result;
}

core::Status NVMeGetLog::sendCommand() {
  core::Status result = canRun();
  if (core::succeeded(result)) {
    auto command = std::make_unique<commands::nvme::GetLogPage>();
    auto& entry = command->submissionEntry;
    const uint32_t numDWORDs = core::readUInt32(attributes, properties::numDWORDs());
    const uint64_t offset = core::readUInt64(attributes, properties::logPageOffset());
    namespace layout = commands::nvme::layout;
    entry.set(layout::kLogId, getLogId());
    entry.set(layout::kNamespaceId, core::readUInt32(attributes, properties::namespaceId()));
    entry.set(layout::kDwordCountLower, core::extract(numDWORDs, core::bits(15, 0)));
    entry.set(layout::kDwordCountUpper, core::extract(numDWORDs, core::bits(31, 16)));
    command->transferBytes = (uint64_t{numDWORDs} + 1) * 4;
    entry.set(layout::kLogOffsetLower, core::extract(offset, core::bits(31, 0)));
    entry.set(layout::kLogOffsetUpper, core::extract(offset, core::bits(63, 32)));
    entry.set(layout::kLogSpecificField,
              core::readUInt8(attributes, properties::logSpecificField()));
    entry.set(layout::kLogSpecificId, core::readUInt16(attributes, properties::logSpecificId()));
    entry.set(layout::kUuidIndex, getUUIDIndex());
    entry.set(layout::kRetainAsynchronousEvent,
              core::readBool(attributes, retainAsynchronousEventProperty()) ? 1 : 0);

    core::CommandRecord record = device->send(*command, core::Payload());
    result = record.status;
    if (core::succeeded(result)) {
      payload = record.outputPayload;
      ORLO_LOG(info, "Returned Payload of size: " << payload.size());
    } else if (result == core::Status::nvmeCommandProblem() && record.protocolResult) {
      record.protocolResult->fillStatus(result);
    }
  }
  setStatus(result);
  return result;
}

const core::Payload& NVMeGetLog::getPayload() {
  return payload;
}

const core::Payload& NVMeGetLog::getBinaryData() {
  return getPayload();
}

std::unique_ptr<core::xml::XmlObject> NVMeGetLog::getXml() {
  auto object = std::make_unique<core::xml::XmlObject>();
  if (payload.data() == nullptr || payload.size() == 0) return object;
  object->attribute("name") = "NVMeGetLog";
  object->attribute("key") = "NVMeGetLog";
  object->properties().push_back(core::makePayloadProperty(payload.data(), payload.size()));
  return object;
}

core::Status NVMeGetLog::reservedOperation() {
  return core::Status::notImplemented();
}

core::Status NVMeGetLog::writeBinaryToFile(std::string fileName) {
  ORLO_SCOPE_TRACE();
  const core::Payload& data = getBinaryData();
  bool written = false;
  std::ofstream file(fileName, std::ios::binary | std::ios::trunc);
  if (file.is_open() && data.data() != nullptr) {
    file.write(reinterpret_cast<const char*>(data.data()), data.size());
    written = !file.fail();  // failbit or badbit
  }
  if (!written) return core::Status(10, 168, "Failed to write to file.");
  return core::Status::success();
}

uint8_t NVMeGetLog::getUUIDIndex() {
  return core::readUInt8(attributes, uuidIndexProperty());
}

uint8_t NVMeGetLog::getLogId() {
  return core::readUInt8(attributes, properties::logId());
}

bool NVMeGetLog::isAcceptedIndex(uint8_t index) {
  const uuid::GUIDIndexMap registered = uuidManager->getRegisteredGUIDs();
  for (const uuid::GUID16& guid : uuidManager->supportedUUIDs) {
    const auto found = registered.find(guid);
    if (found != registered.end() && found->second == index) return true;
  }
  return false;
}

}  // namespace orlo::features::nvme_get_log
