#include "host/FleetMetrics.h"

#include <algorithm>
#include <cctype>
#include <iostream>
#include <utility>
#include <vector>

#include "devices/DeviceImage.h"
#include "devices/DriveDiscovery.h"
#include "host/DriveList.h"
#include "host/DriveSelection.h"
#include "host/MetricsFile.h"
#include "host/PrometheusText.h"
#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/health/DriveHealthFacts.h"
#include "plugins/plugin.cliframework/ResultMakers.h"
#include "plugins/plugin.cliframework/SharedParts.h"
#include "plugins/plugin.cliframework/SimpleResult.h"
#include "plugins/plugin.cliframework/StatusResult.h"

namespace orlo::host {

namespace {

namespace health = features::health;

// The text as the command's result: in text output exactly the text, in the other
// formats a value named "Metrics".
class ExpositionResult : public plugin::cli::SimpleResult {
 public:
  explicit ExpositionResult(std::string text) : SimpleResult("Metrics", std::move(text)) {}
  std::string toText(uint32_t) const override { return value; }
};

// Asks the drive for its health through the reader of its protocol (the ATA one refuses
// a drive of neither) and keeps the facts in `drive`; the reason when it could not.
std::string readFacts(const std::shared_ptr<core::Device>& device, DriveHealth& drive) {
  health::HealthFacts facts;
  const core::Status read = health::readHealthFacts(device, facts);
  if (!core::succeeded(read)) return read.message();
  drive.facts = std::move(facts);
  return "";
}

// What the metrics call the drive that "-ssd" names, as openDrive picks it: the node of
// the drive of that index or serial number, else the value itself (a node or a device
// image's directory).
std::string deviceName(const std::string& ssd, const devices::DriveOptions& options) {
  if (ssd.find('/') != std::string::npos || devices::DeviceImage(ssd).exists()) return ssd;
  const bool isIndex =
      std::all_of(ssd.begin(), ssd.end(), [](unsigned char c) { return std::isdigit(c) != 0; });
  for (const devices::DriveEntry& drive : devices::discoverDrives(options.sysRoot)) {
    if (isIndex ? std::to_string(drive.index) == ssd : drive.serial == ssd) return drive.path;
  }
  return ssd;
}

DriveHealth namedDrive(const std::shared_ptr<core::Device>& device, std::string name) {
  DriveHealth drive;
  drive.device = std::move(name);
  drive.protocol = device->supportsProtocol("NVME") ? "NVMe" : "ATA";
  drive.model = core::readString(device->attributes, core::properties::modelNumber());
  drive.serial = core::readString(device->attributes, core::properties::serialNumber());
  drive.firmware = core::readString(device->attributes, core::properties::firmware());
  return drive;
}

DriveHealth listedDrive(const devices::DriveEntry& entry) {
  DriveHealth drive;
  drive.device = entry.path;
  drive.protocol = entry.protocol == "NVME" ? "NVMe" : "ATA";
  drive.model = entry.model;
  drive.serial = entry.serial;
  drive.firmware = entry.firmware;
  return drive;
}

void sayUnread(const DriveHealth& drive, const std::string& reason) {
  std::cerr << "orlo: The health of " << drive.device << " could not be read: " << reason
            << std::endl;
}

}  // namespace

std::shared_ptr<plugin::cli::ResultBase> writeMetrics(const plugin::cli::ParsedCommand& command,
                                                      const devices::DriveOptions& options,
                                                      const std::string& fileOption) {
  std::vector<DriveHealth> drives;
  const DriveSelection selection = selectDrive(command, options);
  if (selection.failure) return selection.failure;
  if (selection.device) {
    const std::string& ssd = command.targets.find(plugin::cli::ssdTargetValue.name)->value;
    drives.push_back(namedDrive(selection.device, deviceName(ssd, options)));
    const std::string reason = readFacts(selection.device, drives.back());
    if (!reason.empty()) sayUnread(drives.back(), reason);
  } else {
    const std::vector<devices::DriveEntry> found = devices::discoverDrives(options.sysRoot);
    if (found.empty()) return driveList(found, options.sysRoot);
    for (const devices::DriveEntry& entry : found) {
      drives.push_back(listedDrive(entry));
      std::shared_ptr<core::Device> device;
      const core::Status opened = devices::openDrive(entry.path, options, device);
      const std::string reason =
          core::succeeded(opened) ? readFacts(device, drives.back()) : opened.message();
      if (!reason.empty()) sayUnread(drives.back(), reason);
    }
  }

  std::string text = prometheusText(drives);
  const auto file = command.options.find(fileOption);
  if (file == nullptr) return std::make_shared<ExpositionResult>(std::move(text));
  const core::Status written = writeFileAtomically(file->value, text);
  if (!core::succeeded(written)) {
    return plugin::cli::makeStatusResult(written.message(),
                                         plugin::cli::StatusResult::featureFailedType);
  }
  const std::size_t count = drives.size();
  return plugin::cli::makeStatusResult("Wrote the health of " + std::to_string(count) +
                                       (count == 1 ? " drive to " : " drives to ") + file->value +
                                       ".");
}

}  // namespace orlo::host
