#include "host/IncidentReport.h"

#include <sys/stat.h>
#include <sys/utsname.h>

#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <optional>
#include <vector>

#include "devices/DriveDiscovery.h"
#include "devices/ImageCapture.h"
#include "devices/NamespaceList.h"
#include "host/ArchiveProvider.h"
#include "host/DriveList.h"
#include "host/InstallLayout.h"
#include "host/ResultRenderer.h"
#include "host/StopSignals.h"
#include "orlo/commands/nvme/Identify.h"
#include "orlo/commands/nvme/Layout.h"
#include "orlo/core/LinuxSystem.h"
#include "orlo/core/LoggerSetup.h"
#include "orlo/core/Logging.h"
#include "orlo/core/OwnStatuses.h"
#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/health/DriveHealthFacts.h"
#include "orlo/features/health/HealthSummary.h"
#include "orlo/features/identify/Identify.h"
#include "plugins/plugin.cliframework/ResultMakers.h"
#include "plugins/plugin.cliframework/SharedParts.h"
#include "plugins/plugin.cliframework/StatusResult.h"
#include "plugins/plugin.cliframework/VerdictTreeResult.h"
#include "plugins/plugin.cliframework/Vocabulary.h"
#include "plugins/plugin.cliframework/XmlTreeResult.h"

namespace orlo::host {

namespace {

namespace fs = std::filesystem;
namespace layout = commands::nvme::layout;
namespace properties = core::properties;
using core::Status;
using plugin::cli::ResultBase;
using plugin::cli::StatusResult;

// A private folder (mode 0700) below the temporary folder, removed with all it holds
// when this goes.
class Staging {
 public:
  Staging() = default;
  Staging(const Staging&) = delete;
  Staging& operator=(const Staging&) = delete;
  ~Staging() {
    std::error_code ignored;
    if (!path_.empty()) fs::remove_all(path_, ignored);
  }

  Status make() {
    std::error_code unknown;
    fs::path folder = fs::temp_directory_path(unknown);
    if (unknown) folder = "/tmp";
    std::string pattern = (folder / "orlo-report-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr)
      return core::stagingFailed(pattern, std::strerror(errno));
    path_ = pattern;
    return Status::success();
  }

  const fs::path& path() const { return path_; }

  Status write(const fs::path& name, const std::string& text) const {
    const fs::path file = path_ / name;
    std::error_code error;
    fs::create_directories(file.parent_path(), error);
    if (error) return core::stagingFailed(file.parent_path().string(), error.message());
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << text;
    out.close();
    return out ? Status::success() : core::stagingFailed(file.string(), "it cannot be written");
  }

  // The result in text and JSON, as orlo prints it with -output text and json.
  Status writeRendered(const std::string& stem, const ResultBase& result) const {
    const Status text = write(stem + ".txt", render(result, plugin::cli::formats::text));
    return core::succeeded(text) ? write(stem + ".json", render(result, plugin::cli::formats::json))
                                 : text;
  }

 private:
  fs::path path_;
};

struct ReportedDrive {
  devices::DriveEntry entry;
  std::shared_ptr<core::Device> device;  // none when it could not be opened
  std::string failure;                   // why not
};

std::string folderOf(const devices::DriveEntry& entry) {
  std::string serial = entry.serial;
  while (!serial.empty() && serial.back() == ' ') serial.pop_back();
  for (char& c : serial) {
    if (!std::isalnum(static_cast<unsigned char>(c)) && c != '.' && c != '-' && c != '_') c = '_';
  }
  return "drives/" + std::to_string(entry.index) + (serial.empty() ? "" : "-" + serial);
}

std::string utcNow() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  gmtime_r(&now, &parts);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts);
  return text;
}

std::string systemFacts() {
  struct utsname names {};
  uname(&names);
  core::DistributionInfo distribution;
  core::LinuxSystem().getDistribution(distribution);
  return std::string("orlo: ") + ORLO_VERSION + "\nHost name: " + names.nodename +
         "\nKernel: " + names.sysname + " " + names.release + " " + names.version + " " +
         names.machine + "\nDistribution: " + distribution.name +
         (distribution.version.empty() ? "" : " " + distribution.version) +
         "\nTime (UTC): " + utcNow() + "\n";
}

devices::DriveEntry entryOf(const std::string& ssd, core::Device& device) {
  devices::DriveEntry entry;
  entry.path = ssd;
  entry.protocol = device.supportsProtocol("NVME") ? "NVME" : "ATA";
  entry.model = core::readString(device.attributes, properties::modelNumber());
  entry.serial = core::readString(device.attributes, properties::serialNumber());
  entry.firmware = core::readString(device.attributes, properties::firmware());
  return entry;
}

// The drive that -ssd names, or every drive found, with those that could not be opened.
std::vector<ReportedDrive> drivesToReport(const plugin::cli::ParsedCommand& command,
                                          const devices::DriveOptions& options, Status& status) {
  std::vector<ReportedDrive> drives;
  const auto ssd = command.targets.find(plugin::cli::ssdTargetRequired.name);
  if (ssd != nullptr) {
    std::shared_ptr<core::Device> device;
    status = devices::openDrive(ssd->value, options, device);
    if (core::succeeded(status)) drives.push_back({entryOf(ssd->value, *device), device, ""});
    return drives;
  }
  for (const devices::DriveEntry& entry : devices::discoverDrives(options.sysRoot)) {
    ReportedDrive drive{entry, nullptr, ""};
    const Status opened = devices::openDrive(entry.path, options, drive.device);
    if (!core::succeeded(opened)) {
      drive.device.reset();
      drive.failure = opened.message();
    }
    drives.push_back(drive);
  }
  return drives;
}

std::shared_ptr<ResultBase> failed(const Status& status) {
  return plugin::cli::makeStatusResult(status.message(), StatusResult::featureFailedType);
}

// What `orlo show -ssd X` gives for these properties.
std::shared_ptr<ResultBase> identifyResult(const std::shared_ptr<core::Device>& device,
                                           const core::AttributeCollection& given) {
  features::identify::Identify identify(device, given);
  const Status status = identify.identify();
  if (!core::succeeded(status)) return failed(status);
  return std::make_shared<plugin::cli::XmlTreeResult>(identify.getXml());
}

// The active namespaces, as many as a device image keeps.
std::vector<uint32_t> activeNamespaces(core::Device& device) {
  commands::nvme::Identify command;
  command.setCns(layout::kCnsActiveNamespaceList);
  const core::CommandRecord sent = device.send(command);
  if (!core::succeeded(sent.status)) return {};
  return devices::listedNamespaces(sent.outputPayload);
}

Status writeIdentify(const Staging& staging, const std::string& folder,
                     const std::shared_ptr<core::Device>& device) {
  if (!device->supportsProtocol("NVME")) {
    return staging.writeRendered(folder + "/identify", *identifyResult(device, {}));
  }
  const auto structure = [](uint8_t cns, uint32_t namespaceId) {
    core::AttributeCollection given;
    given.add(core::Attribute(properties::controllerNamespaceStructure(), cns));
    given.add(core::Attribute(properties::namespaceId(), namespaceId));
    return given;
  };
  Status status =
      staging.writeRendered(folder + "/identify-controller",
                            *identifyResult(device, structure(layout::kCnsController, 0)));
  for (const uint32_t id : activeNamespaces(*device)) {
    if (!core::succeeded(status)) break;
    status = staging.writeRendered(folder + "/identify-namespace-" + std::to_string(id),
                                   *identifyResult(device, structure(layout::kCnsNamespace, id)));
  }
  return status;
}

// What `orlo health -ssd X` gives.
std::shared_ptr<ResultBase> healthResult(const std::shared_ptr<core::Device>& device) {
  features::health::HealthFacts facts;
  const Status read = features::health::readHealthFacts(device, facts);
  if (!core::succeeded(read)) return failed(read);
  return std::make_shared<plugin::cli::VerdictTreeResult>(features::health::summaryTree(facts),
                                                          facts.reportsHealthy);
}

Status writeDrive(const Staging& staging, const ReportedDrive& drive, const StopSignals& signals) {
  const std::string folder = folderOf(drive.entry);
  ORLO_LOG(info, "Drive " << drive.entry.index << " (" << drive.entry.path << ") into " << folder);
  if (!drive.device) return staging.write(folder + "/failure.txt", drive.failure + "\n");
  Status status =
      devices::captureImage(*drive.device, (staging.path() / folder / "image").string());
  if (core::succeeded(status) && signals.caught() == 0) {
    status = writeIdentify(staging, folder, drive.device);
  }
  if (core::succeeded(status) && signals.caught() == 0) {
    status = staging.writeRendered(folder + "/health", *healthResult(drive.device));
  }
  return status;
}

// Stages the report and has the provider write it; `count` is the number of drives.
Status writeReport(const plugin::cli::ParsedCommand& command, const devices::DriveOptions& options,
                   const std::string& destination, bool force, StopSignals& signals,
                   std::size_t& count) {
  Staging staging;
  Status status = staging.make();
  if (!core::succeeded(status)) return status;
  std::optional<core::logging::LogCopy> log;
  log.emplace((staging.path() / "orlo.log").string());
  ORLO_LOG(info, "Incident report " << destination << ", staged in " << staging.path().string());

  const std::vector<ReportedDrive> drives = drivesToReport(command, options, status);
  if (!core::succeeded(status)) return status;
  count = drives.size();
  std::vector<devices::DriveEntry> entries;
  for (const ReportedDrive& drive : drives) entries.push_back(drive.entry);
  status = staging.write("system.txt", systemFacts());
  if (core::succeeded(status)) {
    status = staging.writeRendered("drives", *driveList(entries, options.sysRoot));
  }
  for (const ReportedDrive& drive : drives) {
    if (!core::succeeded(status) || signals.caught() != 0) return status;
    status = writeDrive(staging, drive, signals);
  }
  if (!core::succeeded(status) || signals.caught() != 0) return status;
  const fs::path provider = InstallLayout::ofRunningProgram().providerDirectory() / "powershell";
  ORLO_LOG(info, "Archiving with " << provider.string());
  log.reset();  // the log is complete before it is archived
  return compressFolder(provider, staging.path(), destination, force, signals);
}

// The file that the provider writes for `destination`: a name without an extension gets
// ".zip", as Compress-Archive gives it.
std::string archiveName(const std::string& destination) {
  const std::string name = fs::path(destination).filename().string();
  const std::size_t dot = name.rfind('.');
  return dot == std::string::npos || dot + 1 == name.size() ? destination + ".zip" : destination;
}

}  // namespace

std::shared_ptr<ResultBase> writeIncidentReport(const plugin::cli::ParsedCommand& command,
                                                const devices::DriveOptions& options,
                                                const std::string& destinationOption,
                                                const std::string& forceOption) {
  const std::string destination = command.options.find(destinationOption)->value;
  const bool force = command.options.contains(forceOption);
  const std::string archive = archiveName(destination);
  struct stat existing {};
  if (!force && stat(archive.c_str(), &existing) == 0) {
    return failed(core::destinationExists(archive));
  }
  std::size_t count = 0;
  StopSignals signals;
  const Status status = writeReport(command, options, destination, force, signals, count);
  signals.endIfCaught();  // the staging folder is gone by now
  if (!core::succeeded(status)) return failed(status);
  return plugin::cli::makeStatusResult("Wrote the incident report " + archive + " of " +
                                       std::to_string(count) +
                                       (count == 1 ? " drive." : " drives."));
}

}  // namespace orlo::host
