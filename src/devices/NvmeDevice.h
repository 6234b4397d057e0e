#pragma once

#include <memory>
#include <string>

#include "devices/DriveNode.h"
#include "devices/KernelCalls.h"
#include "devices/VendorList.h"
#include "orlo/core/Device.h"

namespace orlo::devices {

// An NVMe drive reached through the kernel's pass-through ioctls, on the
// controller's character device (/dev/nvme0) or a namespace's block device
// (/dev/nvme0n1), which hands admin commands to its controller. Reads get a
// buffer of the command's transferBytes; a command with data for the drive sends
// the caller's buffer.
class NvmeDevice : public core::Device {
 public:
  // Opens the node through `kernel`, asks Identify Controller for the attributes,
  // and for a namespace node sets NamespaceId to its namespace.
  static core::Status open(const std::string& path, const VendorList& makers,
                           std::shared_ptr<NvmeDevice>& device,
                           std::shared_ptr<KernelCalls> kernel = systemCalls());

  bool supportsProtocol(std::string protocol) override;
  core::CommandRecord send(core::Command& command, const core::Payload& dataOut) override;
  core::CommandRecord send(core::Command& command) override;

 private:
  NvmeDevice() = default;

  DriveNode node_;
};

}  // namespace orlo::devices
