#include "devices/SataDevice.h"

#include <scsi/sg.h>
#include <sys/ioctl.h>

#include <cerrno>

#include "devices/AtaPassThrough.h"
#include "devices/AtaSense.h"
#include "devices/DriveAttributes.h"
#include "devices/SendRecord.h"
#include "orlo/commands/ata/Command.h"
#include "orlo/core/OwnStatuses.h"

namespace orlo::devices {

namespace {

constexpr unsigned kTimeoutMilliseconds = 20000;

}  // namespace

core::Status SataDevice::open(const std::string& path, std::shared_ptr<SataDevice>& device) {
  std::shared_ptr<SataDevice> drive(new SataDevice());
  core::Status status = drive->node_.open(path);
  if (!core::succeeded(status)) return status;
  status = identifyDrive(*drive, VendorList());
  if (!core::succeeded(status)) return status;
  device = drive;
  return core::Status::success();
}

bool SataDevice::supportsProtocol(std::string protocol) {
  return protocol == "ATA";
}

core::CommandRecord SataDevice::send(core::Command& command, const core::Payload& dataOut) {
  core::CommandRecord record = beginRecord(command, dataOut);
  const auto* ata = dynamic_cast<const commands::ata::Command*>(&command);
  if (ata == nullptr) {
    record.status = core::Status(35, "Device does not support this command set.");
    finishRecord(record);
    return record;
  }
  const bool moves = ata->dataIn || ata->dataOut;
  const uint32_t length = moves ? ataTransferLength(*ata) : 0;
  core::Payload buffer = ata->dataOut ? dataOut : core::Payload(length);
  if (buffer.size() < length) {
    record.status = core::bufferShorterThanTransfer();
    finishRecord(record);
    return record;
  }
  std::array<uint8_t, 16> cdb = ataPassThrough16(*ata);
  uint8_t sense[64] = {};
  sg_io_hdr_t request{};
  request.interface_id = 'S';
  request.dxfer_direction =
      length == 0 ? SG_DXFER_NONE : (ata->dataIn ? SG_DXFER_FROM_DEV : SG_DXFER_TO_DEV);
  request.cmd_len = static_cast<unsigned char>(cdb.size());
  request.cmdp = cdb.data();
  request.dxfer_len = length;
  request.dxferp = length > 0 ? buffer.data() : nullptr;
  request.mx_sb_len = sizeof sense;
  request.sbp = sense;
  request.timeout = kTimeoutMilliseconds;
  if (::ioctl(node_.descriptor(), SG_IO, &request) < 0) {
    record.status = nodeFailure(core::Status::retrieveDataFailed(),
                                "send " + command.name() + " to", node_.path(), errno);
  } else {
    AtaOutcome outcome = ataOutcome(
        {request.status, request.host_status, request.driver_status, sense, request.sb_len_wr});
    record.status = outcome.status;
    record.protocolResult = std::move(outcome.protocolResult);
    if (core::succeeded(record.status) && ata->dataIn) record.outputPayload = buffer;
  }
  finishRecord(record);
  return record;
}

core::CommandRecord SataDevice::send(core::Command& command) {
  return send(command, core::Payload());
}

}  // namespace orlo::devices
