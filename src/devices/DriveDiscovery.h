#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

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

// The drives that the kernel lists under `sysRoot` (normally /sys): the NVMe
// controllers of class/nvme, then the disks of block/ that libata drives (SCSI
// vendor "ATA"). Each kind in the kernel's own numbering, indexes from 0. What
// sysfs shows of a SATA disk is short: the model is cut at 16 characters and the
// firmware at 4, from the SCSI inquiry that libata makes up for it.
std::vector<DriveEntry> discoverDrives(const std::filesystem::path& sysRoot = "/sys");

// Where discoverDrives looks, in words: "NVMe controllers in /sys/class/nvme and SATA
// disks in /sys/block".
std::string drivePlaces(const std::filesystem::path& sysRoot);

}  // namespace orlo::devices
