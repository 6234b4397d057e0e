#include "devices/NvmeDevice.h"

#include <linux/nvme_ioctl.h>
#include <sys/ioctl.h>

#include <utility>

#include "devices/DriveAttributes.h"
#include "devices/NvmePassThrough.h"
#include "devices/NvmeProtocolResult.h"
#include "devices/PassThroughSend.h"
#include "orlo/core/PropertyDescriptors.h"

namespace orlo::devices {

namespace {

// An NVMe command in the kernel's pass-through request: an admin command goes to
// the controller's admin queue, any other to an I/O queue. The ioctl returns the
// completion's status field, and the request's `result` holds its dword 0.
class NvmeExchange {
 public:
  using Command = commands::nvme::Command;

  static uint32_t transferLength(const Command& command) {
    return static_cast<uint32_t>(command.transferBytes);
  }

  NvmeExchange(const Command& command, void* data, uint32_t length)
      : request_(nvmePassThrough(command, data, length)), admin_(command.admin) {}

  unsigned long operation() const { return admin_ ? NVME_IOCTL_ADMIN_CMD : NVME_IOCTL_IO_CMD; }
  void* argument() { return &request_; }

  DriveReply reply(int result) const {
    const NvmeProtocolResult completion(static_cast<uint16_t>(result), request_.result);
    return {completion.status(), completion.clone()};
  }

 private:
  nvme_passthru_cmd request_;
  bool admin_;
};

}  // namespace

core::Status NvmeDevice::open(const std::string& path, const VendorList& makers,
                              std::shared_ptr<NvmeDevice>& device,
                              std::shared_ptr<KernelCalls> kernel) {
  std::shared_ptr<NvmeDevice> drive(new NvmeDevice());
  core::Status status = drive->node_.open(path, std::move(kernel));
  if (!core::succeeded(status)) return status;
  status = identifyDrive(*drive, makers);
  if (!core::succeeded(status)) return status;
  // Only a namespace node has a namespace; the controller's node refuses the request.
  const int namespaceId = drive->node_.ioctl(NVME_IOCTL_ID, nullptr);
  if (namespaceId > 0) {
    core::writeUInt32(drive->attributes, core::properties::namespaceId(),
                      static_cast<uint32_t>(namespaceId));
  }
  device = drive;
  return core::Status::success();
}

bool NvmeDevice::supportsProtocol(std::string protocol) {
  return protocol == "NVME";
}

core::CommandRecord NvmeDevice::send(core::Command& command, const core::Payload& dataOut) {
  return passThroughSend<NvmeExchange>(node_, command, dataOut);
}

core::CommandRecord NvmeDevice::send(core::Command& command) {
  return send(command, core::Payload());
}

}  // namespace orlo::devices
