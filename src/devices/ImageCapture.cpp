#include "devices/ImageCapture.h"

#include <algorithm>
#include <set>
#include <vector>

#include "devices/DeviceImage.h"
#include "devices/NamespaceList.h"
#include "devices/ReplyName.h"
#include "orlo/commands/ata/CheckPowerMode.h"
#include "orlo/commands/ata/Completion.h"
#include "orlo/commands/ata/IdentifyDevice.h"
#include "orlo/commands/ata/Layout.h"
#include "orlo/commands/ata/ReadLogExt.h"
#include "orlo/commands/ata/Smart.h"
#include "orlo/commands/nvme/GetLogPage.h"
#include "orlo/commands/nvme/Identify.h"
#include "orlo/core/BitField.h"
#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/ata_smart/LogDirectory.h"
#include "orlo/features/feature/UUID/GUID16.h"
#include "orlo/features/feature/UUID/UUIDListReader.h"

namespace orlo::devices {

namespace {

namespace properties = core::properties;

constexpr uint32_t kAllNamespaces = 0xFFFFFFFF;

namespace layout = commands::nvme::layout;

// What an image keeps of a good answer: the data read, or for an ATA command without
// data the registers that the drive returned, which are its answer.
core::Payload reply(const core::Command& command, const core::CommandRecord& sent) {
  const auto* ata = dynamic_cast<const commands::ata::Command*>(&command);
  const auto* completion =
      dynamic_cast<const commands::ata::Completion*>(sent.protocolResult.get());
  if (ata == nullptr || ata->dataIn || ata->dataOut || completion == nullptr) {
    return sent.outputPayload;
  }
  return core::Payload(completion->registers.bytes(), sizeof completion->registers);
}

class Recorder {
 public:
  Recorder(core::Device& device, const DeviceImage& image) : device_(device), image_(image) {}

  // Sends the command, unless one of the same reply name went before, and keeps a
  // good reply or the drive's refusal; the reply, or an empty payload.
  core::Payload keep(core::Command& command) {
    const std::string name = replyName(command);
    if (!tried_.insert(name).second) return core::Payload();
    const core::CommandRecord sent = device_.send(command);
    if (core::succeeded(sent.status)) {
      note(image_.writeReply(name, reply(command, sent)));
      return sent.outputPayload;
    }
    // A failure without the drive's completion (a system call refused) is the host's,
    // not the drive's, and a replay of the image would not meet it.
    if (sent.protocolResult) note(image_.writeRefusal(name, *sent.protocolResult));
    return core::Payload();
  }

  const core::Status& status() const { return status_; }

 private:
  void note(const core::Status& written) {
    if (!core::succeeded(written)) status_ = written;
  }

  core::Device& device_;
  const DeviceImage& image_;
  std::set<std::string> tried_;
  core::Status status_ = core::Status::success();
};

core::Payload identify(Recorder& recorder, uint8_t cns, uint32_t namespaceId) {
  commands::nvme::Identify command;
  command.setCns(cns);
  command.submissionEntry.set(layout::kNamespaceId, namespaceId);
  return recorder.keep(command);
}

// The index that the toolkit gives a vendor log page: that of the vendor's GUID in
// the drive's UUID list, in either byte order; 0, no selection, without one.
uint32_t vendorUUIDIndex(const core::Payload& uuidList) {
  const std::vector<features::uuid::UUIDListEntry> entries = features::uuid::readUUIDList(uuidList);
  for (const features::uuid::GUID16& guid :
       {features::uuid::VendorGUID, features::uuid::VendorGUIDReversed}) {
    for (std::size_t i = 0; i < entries.size(); ++i) {
      if (std::equal(guid.begin(), guid.end(), entries[i].begin() + layout::kUuidInEntry)) {
        return static_cast<uint32_t>(i + 1);
      }
    }
  }
  return 0;
}

void getLogPage(Recorder& recorder, const layout::LogPage& page, uint32_t bytes,
                uint32_t namespaceId, uint32_t uuidIndex) {
  commands::nvme::GetLogPage command;
  commands::nvme::SubmissionEntry& entry = command.submissionEntry;
  const uint32_t dwords = bytes / 4 - 1;
  entry.set(layout::kNamespaceId, namespaceId);
  entry.set(layout::kLogId, page.id);
  entry.set(layout::kDwordCountLower, core::extract(dwords, core::bits(15, 0)));
  entry.set(layout::kDwordCountUpper, core::extract(dwords, core::bits(31, 16)));
  entry.set(layout::kUuidIndex, uuidIndex);
  command.transferBytes = bytes;
  recorder.keep(command);
}

void captureNvme(core::Device& device, Recorder& recorder) {
  std::set<uint32_t> namespaces = {0, kAllNamespaces};
  const uint32_t own = core::readUInt32(device.attributes, properties::namespaceId());
  if (own != 0) namespaces.insert(own);
  // The allocated namespaces as well as the attached ones: a detached namespace has no
  // node, yet the drive describes it (CNS 11h) and the toolkit may ask for it.
  for (const uint8_t list : {layout::kCnsActiveNamespaceList, layout::kCnsAllocatedNamespaceList}) {
    for (const uint32_t id : listedNamespaces(identify(recorder, list, 0))) namespaces.insert(id);
  }
  const uint32_t uuidIndex = vendorUUIDIndex(identify(recorder, layout::kCnsUuidList, 0));
  for (const layout::IdentifyStructure& structure : layout::kDecodedStructures) {
    for (const uint32_t id : namespaces) identify(recorder, structure.cns, id);
  }
  const uint8_t elpe = core::readUInt8(device.attributes, properties::errorLogPageEntries());
  for (const layout::LogPage& page : layout::kReadLogPages) {
    getLogPage(recorder, page, layout::logPageSize(page, elpe), kAllNamespaces,
               page.makersUuid ? uuidIndex : 0);
  }
  // A drive that keeps SMART / Health Information per namespace answers for each.
  if (core::readBool(device.attributes, properties::smartPerNamespace())) {
    for (const uint32_t id : namespaces) {
      if (id == 0) continue;
      getLogPage(recorder, layout::kSmartHealthLog, layout::kSmartHealthLog.size, id, 0);
    }
  }
}

void captureAta(Recorder& recorder) {
  commands::ata::IdentifyDevice identifyDevice;
  recorder.keep(identifyDevice);
  commands::ata::CheckPowerMode checkPowerMode;
  recorder.keep(checkPowerMode);
  commands::ata::SmartReadData smartData;
  recorder.keep(smartData);
  commands::ata::SmartReadThresholds smartThresholds;
  recorder.keep(smartThresholds);
  commands::ata::SmartReturnStatus smartStatus;
  recorder.keep(smartStatus);
  // The Device Statistics log, in as many pages as the log directory gives it.
  commands::ata::ReadLogExt directory(commands::ata::layout::kLogDirectory, 0, 1);
  const uint16_t pages = features::ata_smart::logPages(recorder.keep(directory),
                                                       commands::ata::layout::kDeviceStatisticsLog);
  if (pages > 0) {
    commands::ata::ReadLogExt statistics(commands::ata::layout::kDeviceStatisticsLog, 0, pages);
    recorder.keep(statistics);
  }
}

}  // namespace

core::Status captureImage(core::Device& device, const std::string& directory) {
  const bool nvme = device.supportsProtocol("NVME");
  if (!nvme && !device.supportsProtocol("ATA")) {
    return core::Status(35, "Device does not support this command set.");
  }
  const DeviceImage image(directory);
  core::AttributeCollection kept;
  for (const auto& [name, attribute] : device.attributes) {
    if (name != properties::veldra().name && name != properties::veldraNVMe().name) {
      kept.add(attribute);
    }
  }
  core::Status status = image.writeAttributes(nvme ? "NVME" : "ATA", kept);
  if (!core::succeeded(status)) return status;
  Recorder recorder(device, image);
  if (nvme) {
    captureNvme(device, recorder);
  } else {
    captureAta(recorder);
  }
  return recorder.status();
}

}  // namespace orlo::devices
