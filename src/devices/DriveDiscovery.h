#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "orlo/core/Device.h"
#include "orlo/core/Status.h"

namespace orlo::devices {

// One drive as the kernel lists it.
struct DriveEntry {
  uint32_t index = 0;
  std::string path;      // "/dev/nvme0", "/dev/sda"
  std::string protocol;  // "NVME" or "ATA"
  std::string model;
  std::string serial;
  std::string firmware;
};

// Opens the drive at a node through its backend, which asks the drive for its
// attributes.
using DriveOpener =
    std::function<core::Status(const std::string& node, std::shared_ptr<core::Device>& device)>;

// The drives that the kernel lists under `sysRoot` (normally /sys): the NVMe
// controllers of class/nvme, then the disks of block/ that libata drives (SCSI
// vendor "ATA"). Each kind in the kernel's own numbering, indexes from 0. Model,
// serial number and firmware are the drive's own, in full: an NVMe controller's
// as the kernel copies them from Identify Controller; a SATA disk's from the
// IDENTIFY DEVICE words that libata shows (class/ata_device/devP.D/id), not from
// the SCSI inquiry it makes up, which cuts the model at 16 characters and keeps
// the firmware's last 4. A disk whose words the kernel does not show is opened
// with `openAta` (the SATA backend, which needs root, when empty); one that
// cannot be asked is listed with the serial number of its unit serial number
// page and no model or firmware.
std::vector<DriveEntry> discoverDrives(const std::filesystem::path& sysRoot = "/sys",
                                       const DriveOpener& openAta = nullptr);

// Where discoverDrives looks, in words: "NVMe controllers in /sys/class/nvme and SATA
// disks in /sys/block".
std::string drivePlaces(const std::filesystem::path& sysRoot);

}  // namespace orlo::devices
