#pragma once

#include <memory>
#include <string>

#include "devices/DriveNode.h"
#include "devices/KernelCalls.h"
#include "orlo/core/Device.h"

namespace orlo::devices {

// A SATA drive behind the kernel's SCSI/ATA translation (/dev/sda), reached with
// SG_IO and ATA PASS-THROUGH (16): IDENTIFY DEVICE as PIO data-in, READ DMA as
// DMA, CHECK POWER MODE as non-data. The ATA Status and Error registers of the
// sense data decide the outcome; the record's protocol result holds them.
class SataDevice : public core::Device {
 public:
  // Opens the node through `kernel` and asks IDENTIFY DEVICE for the attributes.
  static core::Status open(const std::string& path, std::shared_ptr<SataDevice>& device,
                           std::shared_ptr<KernelCalls> kernel = systemCalls());

  bool supportsProtocol(std::string protocol) override;
  core::CommandRecord send(core::Command& command, const core::Payload& dataOut) override;
  core::CommandRecord send(core::Command& command) override;

 private:
  SataDevice() = default;

  DriveNode node_;
};

}  // namespace orlo::devices
