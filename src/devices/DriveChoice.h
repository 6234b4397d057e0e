#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "devices/VendorList.h"
#include "orlo/core/Device.h"
#include "orlo/core/Status.h"

namespace orlo::devices {

// Where drives are looked for, and which vendors are the maker's.
struct DriveOptions {
  std::filesystem::path sysRoot = "/sys";
  VendorList makers;
};

// Opens the drive that the value of "-ssd" names, tried in this order:
//   an incident report that `orlo report` wrote, "REPORT" or "REPORT:DRIVE" (see
//   chooseReportImage): a ReplayDevice of the chosen drive's image, read in place;
//   a device image directory (one holding attributes.txt): a ReplayDevice;
//   a path (with a "/"): /dev/nvme* as an NvmeDevice, /dev/sd* as a SataDevice;
//   a number: the drive of that index in discoverDrives;
//   otherwise the serial number of a discovered drive.
// A value that names nothing gives noDriveMatches, with a message that says why.
core::Status openDrive(const std::string& ssd, const DriveOptions& options,
                       std::shared_ptr<core::Device>& device);

}  // namespace orlo::devices
