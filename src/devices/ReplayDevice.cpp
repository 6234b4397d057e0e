#include "devices/ReplayDevice.h"

#include <algorithm>
#include <cstring>

#include "devices/AtaPassThrough.h"
#include "devices/DriveAttributes.h"
#include "devices/NvmeProtocolResult.h"
#include "devices/ReplyName.h"
#include "devices/SendRecord.h"
#include "orlo/commands/ata/Command.h"
#include "orlo/commands/ata/Completion.h"
#include "orlo/commands/nvme/Command.h"

namespace orlo::devices {

namespace {

constexpr uint16_t kInvalidFieldInCommand = 0x4002;  // with Do Not Retry
constexpr uint8_t kAtaStatusError = 0x51;            // DRDY, DSC, ERR
constexpr uint8_t kAtaErrorAborted = 0x04;           // ABRT

std::unique_ptr<core::ProtocolResult> refusal(const core::Command& command) {
  if (command.protocol() == "ATA") {
    commands::ata::TaskFile registers;
    registers.feature = kAtaErrorAborted;
    registers.command = kAtaStatusError;
    return std::make_unique<commands::ata::Completion>(registers);
  }
  return std::make_unique<NvmeProtocolResult>(kInvalidFieldInCommand, 0);
}

// Bytes that a read of this command returns.
uint32_t readLength(const core::Command& command) {
  if (const auto* nvme = dynamic_cast<const commands::nvme::Command*>(&command)) {
    return nvme->dataIn ? static_cast<uint32_t>(nvme->transferBytes) : 0;
  }
  if (const auto* ata = dynamic_cast<const commands::ata::Command*>(&command)) {
    return ata->dataIn ? ataTransferLength(*ata) : 0;
  }
  return 0;
}

// The registers kept as the reply of an ATA command without data: the returned task
// file's eight bytes. None for an NVMe command, an ATA command that reads, or a reply
// kept without them.
std::unique_ptr<core::ProtocolResult> returnedRegisters(const core::Command& command,
                                                        const std::string& reply) {
  const auto* ata = dynamic_cast<const commands::ata::Command*>(&command);
  commands::ata::TaskFile registers;
  if (ata == nullptr || ata->dataIn || ata->dataOut || reply.size() < sizeof registers) {
    return nullptr;
  }
  std::memcpy(&registers, reply.data(), sizeof registers);
  return std::make_unique<commands::ata::Completion>(registers);
}

}  // namespace

ReplayDevice::ReplayDevice(const DeviceImage& image) : image_(image) {}

core::Status ReplayDevice::open(const std::string& directory, const VendorList& makers,
                                std::shared_ptr<ReplayDevice>& device) {
  return open(DeviceImage(directory), makers, device);
}

core::Status ReplayDevice::open(const DeviceImage& image, const VendorList& makers,
                                std::shared_ptr<ReplayDevice>& device) {
  std::shared_ptr<ReplayDevice> replay(new ReplayDevice(image));
  core::AttributeCollection stated;
  core::Status status = replay->image_.readAttributes(replay->protocol_, stated);
  if (!core::succeeded(status)) return status;
  status = identifyDrive(*replay, makers);
  if (!core::succeeded(status)) {
    status.setMessage("Device image " + image.name() +
                      " has no Identify reply: " + status.message());
    return status;
  }
  for (const auto& entry : stated) replay->attributes.add(entry.second);
  device = replay;
  return core::Status::success();
}

bool ReplayDevice::supportsProtocol(std::string protocol) {
  return protocol == protocol_;
}

core::CommandRecord ReplayDevice::send(core::Command& command, const core::Payload& dataOut) {
  core::CommandRecord record = beginRecord(command, dataOut);
  std::string reply;
  bool found = false;
  if (!supportsProtocol(command.protocol())) {
    record.status = core::Status(35, "Device does not support this command set.");
  } else if (const core::Status read = image_.readReply(replyName(command), reply, found);
             !core::succeeded(read)) {
    record.status = read;
  } else if (found) {
    record.protocolResult = returnedRegisters(command, reply);
    if (record.protocolResult) record.protocolResult->fillStatus(record.status);
    const uint32_t length = readLength(command);
    if (length > 0) {
      record.outputPayload = core::Payload(length);
      std::memcpy(record.outputPayload.data(), reply.data(),
                  std::min<std::size_t>(length, reply.size()));
    }
  } else if (const core::Status kept =
                 image_.readRefusal(replyName(command), record.protocolResult);
             !core::succeeded(kept)) {
    record.status = kept;
  } else {
    if (!record.protocolResult) record.protocolResult = refusal(command);
    record.protocolResult->fillStatus(record.status);
  }
  finishRecord(record);
  return record;
}

core::CommandRecord ReplayDevice::send(core::Command& command) {
  return send(command, core::Payload());
}

}  // namespace orlo::devices
