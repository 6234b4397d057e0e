#include "devices/SataDevice.h"

#include <scsi/sg.h>

#include <array>
#include <utility>

#include "devices/AtaPassThrough.h"
#include "devices/AtaSense.h"
#include "devices/DriveAttributes.h"
#include "devices/PassThroughSend.h"
#include "orlo/commands/ata/Command.h"

namespace orlo::devices {

namespace {

constexpr unsigned kTimeoutMilliseconds = 20000;

// An ATA command in ATA PASS-THROUGH (16), sent with SG_IO. The completion is in
// the SCSI, host and driver statuses and in the sense data, which holds the ATA
// registers when the translation layer returned them.
class SgIoExchange {
 public:
  using Command = commands::ata::Command;

  static uint32_t transferLength(const Command& command) {
    return command.dataIn || command.dataOut ? ataTransferLength(command) : 0;
  }

  SgIoExchange(const Command& command, void* data, uint32_t length)
      : cdb_(ataPassThrough16(command)) {
    request_.interface_id = 'S';
    request_.dxfer_direction =
        length == 0 ? SG_DXFER_NONE : (command.dataIn ? SG_DXFER_FROM_DEV : SG_DXFER_TO_DEV);
    request_.cmd_len = static_cast<unsigned char>(cdb_.size());
    request_.cmdp = cdb_.data();
    request_.dxfer_len = length;
    request_.dxferp = data;
    request_.mx_sb_len = static_cast<unsigned char>(sense_.size());
    request_.sbp = sense_.data();
    request_.timeout = kTimeoutMilliseconds;
  }
  // The request points into the object.
  SgIoExchange(const SgIoExchange&) = delete;
  SgIoExchange& operator=(const SgIoExchange&) = delete;

  unsigned long operation() const { return SG_IO; }
  void* argument() { return &request_; }

  DriveReply reply(int) const {
    return ataOutcome({request_.status, request_.host_status, request_.driver_status, sense_.data(),
                       request_.sb_len_wr});
  }

 private:
  std::array<uint8_t, 16> cdb_;
  std::array<uint8_t, 64> sense_{};
  sg_io_hdr_t request_{};
};

}  // namespace

core::Status SataDevice::open(const std::string& path, std::shared_ptr<SataDevice>& device,
                              std::shared_ptr<KernelCalls> kernel) {
  std::shared_ptr<SataDevice> drive(new SataDevice());
  core::Status status = drive->node_.open(path, std::move(kernel));
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
  return passThroughSend<SgIoExchange>(node_, command, dataOut);
}

core::CommandRecord SataDevice::send(core::Command& command) {
  return send(command, core::Payload());
}

}  // namespace orlo::devices
