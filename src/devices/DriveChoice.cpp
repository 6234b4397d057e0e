#include "devices/DriveChoice.h"

#include <algorithm>

#include "devices/DeviceImage.h"
#include "devices/DriveDiscovery.h"
#include "devices/NvmeDevice.h"
#include "devices/ReplayDevice.h"
#include "devices/ReportArchive.h"
#include "devices/SataDevice.h"
#include "orlo/core/OwnStatuses.h"

namespace orlo::devices {

namespace {

template <typename Backend, typename Source, typename... Options>
core::Status openAs(const Source& source, std::shared_ptr<core::Device>& device,
                    const Options&... options) {
  std::shared_ptr<Backend> drive;
  const core::Status status = Backend::open(source, options..., drive);
  if (core::succeeded(status)) device = drive;
  return status;
}

core::Status openPath(const std::string& ssd, const DriveOptions& options,
                      std::shared_ptr<core::Device>& device) {
  if (DeviceImage(ssd).exists()) return openAs<ReplayDevice>(ssd, device, options.makers);
  const std::string name = std::filesystem::path(ssd).filename().string();
  if (name.compare(0, 4, "nvme") == 0) return openAs<NvmeDevice>(ssd, device, options.makers);
  if (name.compare(0, 2, "sd") == 0) return openAs<SataDevice>(ssd, device);
  return core::noDriveMatches(ssd,
                              "not an NVMe node (/dev/nvme*), a SATA disk (/dev/sd*) or a device "
                              "image directory.");
}

}  // namespace

core::Status openDrive(const std::string& ssd, const DriveOptions& options,
                       std::shared_ptr<core::Device>& device) {
  if (namesReport(ssd)) {
    std::optional<DeviceImage> image;
    const core::Status chosen = chooseReportImage(ssd, image);
    if (!core::succeeded(chosen)) return chosen;
    return openAs<ReplayDevice>(*image, device, options.makers);
  }
  if (ssd.find('/') != std::string::npos || DeviceImage(ssd).exists()) {
    return openPath(ssd, options, device);
  }
  const std::vector<DriveEntry> drives = discoverDrives(options.sysRoot);
  const bool isIndex = !ssd.empty() && std::all_of(ssd.begin(), ssd.end(), ::isdigit);
  for (const DriveEntry& drive : drives) {
    if (isIndex ? std::to_string(drive.index) == ssd : drive.serial == ssd) {
      return openPath(drive.path, options, device);
    }
  }
  return core::noDriveMatches(ssd, std::string(isIndex ? "no drive has that index"
                                                       : "no drive has that "
                                                         "serial number") +
                                       " ('orlo show -ssd' lists the drives).");
}

}  // namespace orlo::devices
