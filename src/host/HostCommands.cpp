#include "host/HostCommands.h"

#include <algorithm>
#include <string>

#include "devices/DriveDiscovery.h"
#include "devices/ImageCapture.h"
#include "host/DriveList.h"
#include "host/DriveSelection.h"
#include "host/FleetMetrics.h"
#include "host/IncidentReport.h"
#include "plugins/plugin.cliframework/ResultMakers.h"
#include "plugins/plugin.cliframework/SharedParts.h"
#include "plugins/plugin.cliframework/StatusResult.h"
#include "plugins/plugin.cliframework/Vocabulary.h"

namespace orlo::host {

namespace {

using plugin::cli::CommandSpec;
using plugin::cli::CommandSpecPart;

enum HostCommandId : uint32_t { drivesId, captureId, metricsId, reportId };

const std::string captureVerb = "capture";
const std::string imageOption = "-image";
const std::string metricsVerb = "metrics";
const std::string fileOption = "-file";
const std::string reportVerb = "report";
const std::string forceOption = "-force";

std::shared_ptr<CommandSpec> drivesSpec() {
  auto spec = std::make_shared<CommandSpec>(
      drivesId, "Drives", "List the drives that orlo finds, with what -ssd takes for each.",
      plugin::cli::verbs::show);
  // "-ssd" without a value: a drive named behind it makes the line another command's.
  spec->targets.add(std::make_shared<CommandSpecPart>(plugin::cli::TargetCommandSpecPart(
      plugin::cli::ssdTargetRequired.name, true, "", false,
      "List the drives: index, path, protocol, model, serial number and firmware.", false, "")));
  return spec;
}

std::shared_ptr<CommandSpec> captureSpec() {
  auto spec = std::make_shared<CommandSpec>(
      captureId, "Capture",
      "Record a drive's Identify structures and log pages into a device image, which -ssd "
      "then takes in place of the drive.",
      captureVerb);
  spec->targets.add(std::make_shared<CommandSpecPart>(plugin::cli::ssdTargetRequiredValue));
  spec->addOption(plugin::cli::OptionCommandSpecPart(
      imageOption, true, "directory", true,
      "Directory of the device image; made if missing, its replies replaced.", false, ""));
  return spec;
}

std::shared_ptr<CommandSpec> metricsSpec() {
  auto spec = std::make_shared<CommandSpec>(
      metricsId, "Metrics",
      "Write the health of every drive found, or of the drive -ssd names, in the Prometheus "
      "text format; a drive that cannot be read has orlo_drive_up 0.",
      metricsVerb);
  spec->targets.add(std::make_shared<CommandSpecPart>(plugin::cli::ssdTargetValue));
  spec->addOption(plugin::cli::OptionCommandSpecPart(
      fileOption, false, "path", true,
      "Write to this file instead of the standard output, whole or not at all (for "
      "node_exporter's textfile collector, a name ending in .prom).",
      false, ""));
  return spec;
}

std::shared_ptr<CommandSpec> reportSpec() {
  auto spec = std::make_shared<CommandSpec>(
      reportId, "Report",
      "Write an incident report of the drive -ssd names, or of every drive found: per drive "
      "its device image, its Identify structures and its health in text and JSON, with the "
      "drive list, the system's facts and orlo's log of the run, in a new zip archive that "
      "-ssd then takes as REPORT or REPORT:DRIVE.",
      reportVerb);
  spec->targets.add(std::make_shared<CommandSpecPart>(plugin::cli::ssdTargetValue));
  spec->addOption(plugin::cli::OptionCommandSpecPart(
      plugin::cli::destinationPartRequired.name, true, "path", true,
      "The archive to write; a name without an extension gets .zip.", false, ""));
  spec->addOption(plugin::cli::OptionCommandSpecPart(
      forceOption, false, "", false, "Replace the destination if it exists.", false, ""));
  return spec;
}

std::shared_ptr<plugin::cli::ResultBase> listDrives(const orlo::devices::DriveOptions& options) {
  return driveList(orlo::devices::discoverDrives(options.sysRoot), options.sysRoot);
}

std::shared_ptr<plugin::cli::ResultBase> capture(const plugin::cli::ParsedCommand& command,
                                                 const orlo::devices::DriveOptions& options) {
  const DriveSelection selection = selectDrive(command, options);
  if (selection.failure) return selection.failure;
  const std::string directory = command.options.find(imageOption)->value;
  const orlo::core::Status captured = orlo::devices::captureImage(*selection.device, directory);
  if (!orlo::core::succeeded(captured)) {
    return plugin::cli::makeStatusResult(captured.message(),
                                         plugin::cli::StatusResult::featureFailedType);
  }
  return plugin::cli::makeStatusResult("Captured the drive into " + directory + ".");
}

}  // namespace

const plugin::cli::CommandSpecs& hostCommandSpecs() {
  static const plugin::cli::CommandSpecs specs = {drivesSpec(), captureSpec(), metricsSpec(),
                                                  reportSpec()};
  return specs;
}

plugin::cli::CommandSpecs allCommandSpecs(const plugin::cli::PluginRegistry& registry) {
  plugin::cli::CommandSpecs specs = registry.commands;
  specs.insert(specs.end(), hostCommandSpecs().begin(), hostCommandSpecs().end());
  return specs;
}

bool isHostCommand(const CommandSpec& spec) {
  const auto& specs = hostCommandSpecs();
  return std::any_of(specs.begin(), specs.end(),
                     [&](const auto& held) { return held.get() == &spec; });
}

std::shared_ptr<plugin::cli::ResultBase> runHostCommand(
    const CommandSpec& spec, const plugin::cli::ParsedCommand& command,
    const orlo::devices::DriveOptions& options) {
  switch (spec.id) {
    case drivesId:
      return listDrives(options);
    case captureId:
      return capture(command, options);
    case metricsId:
      return writeMetrics(command, options, fileOption);
    default:
      return writeIncidentReport(command, options, plugin::cli::destinationPartRequired.name,
                                 forceOption);
  }
}

}  // namespace orlo::host
