#include "devices/NvmeDevice.h"

#include <sys/ioctl.h>

#include <cerrno>

#include "devices/DriveAttributes.h"
#include "devices/NvmePassThrough.h"
#include "devices/NvmeProtocolResult.h"
#include "devices/SendRecord.h"
#include "orlo/core/OwnStatuses.h"
#include "orlo/core/PropertyDescriptors.h"

namespace orlo::devices {

core::Status NvmeDevice::open(const std::string& path, const VendorList& makers,
                              std::shared_ptr<NvmeDevice>& device) {
  std::shared_ptr<NvmeDevice> drive(new NvmeDevice());
  core::Status status = drive->node_.open(path);
  if (!core::succeeded(status)) return status;
  status = identifyDrive(*drive, makers);
  if (!core::succeeded(status)) return status;
  // Only a namespace node has a namespace; the controller's node refuses the request.
  const int namespaceId = ::ioctl(drive->node_.descriptor(), NVME_IOCTL_ID);
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
  core::CommandRecord record = beginRecord(command, dataOut);
  const auto* nvme = dynamic_cast<const commands::nvme::Command*>(&command);
  if (nvme == nullptr) {
    record.status = core::Status(35, "Device does not support this command set.");
    finishRecord(record);
    return record;
  }
  const uint32_t length = static_cast<uint32_t>(nvme->transferBytes);
  core::Payload buffer = nvme->dataOut ? dataOut : core::Payload(length);
  if (buffer.size() < length) {
    record.status = core::bufferShorterThanTransfer();
    finishRecord(record);
    return record;
  }
  nvme_passthru_cmd request = nvmePassThrough(*nvme, length > 0 ? buffer.data() : nullptr, length);
  const unsigned long operation = nvme->admin ? NVME_IOCTL_ADMIN_CMD : NVME_IOCTL_IO_CMD;
  const int result = ::ioctl(node_.descriptor(), operation, &request);
  if (result < 0) {
    record.status = nodeFailure(core::Status::retrieveDataFailed(),
                                "send " + command.name() + " to", node_.path(), errno);
  } else {
    const NvmeProtocolResult outcome(static_cast<uint16_t>(result), request.result);
    record.status = outcome.status();
    record.protocolResult = outcome.clone();
    if (result == 0 && nvme->dataIn) record.outputPayload = buffer;
  }
  finishRecord(record);
  return record;
}

core::CommandRecord NvmeDevice::send(core::Command& command) {
  return send(command, core::Payload());
}

}  // namespace orlo::devices
