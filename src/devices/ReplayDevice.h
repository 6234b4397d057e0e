#pragma once

#include <memory>
#include <string>

#include "devices/DeviceImage.h"
#include "devices/VendorList.h"
#include "orlo/core/Device.h"

namespace orlo::devices {

// A drive played back from a device image. Every command is answered from the
// image's reply to it, or fails with the completion that the image kept of the
// drive's refusal; a command the image has neither for fails as a drive fails an
// unsupported request: NVMe with "Invalid Field in Command", ATA with ABRT in its
// Error register. A reply or refusal file that cannot serve (a directory, a FIFO,
// one too large, a refusal that holds no failed completion) fails the command with
// the status that says so.
class ReplayDevice : public core::Device {
 public:
  // Reads the image's attributes, sets the drive's own attributes from its
  // Identify reply as for a real drive, and lets the image's stated attributes
  // override those.
  static core::Status open(const std::string& directory, const VendorList& makers,
                           std::shared_ptr<ReplayDevice>& device);
  // The same for an image that may be kept elsewhere, such as in an incident report.
  static core::Status open(const DeviceImage& image, const VendorList& makers,
                           std::shared_ptr<ReplayDevice>& device);

  bool supportsProtocol(std::string protocol) override;
  core::CommandRecord send(core::Command& command, const core::Payload& dataOut) override;
  core::CommandRecord send(core::Command& command) override;

 private:
  explicit ReplayDevice(const DeviceImage& image);

  DeviceImage image_;
  std::string protocol_;
};

}  // namespace orlo::devices
