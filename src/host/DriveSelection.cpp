#include "host/DriveSelection.h"

#include "plugins/plugin.cliframework/ResultMakers.h"
#include "plugins/plugin.cliframework/SharedParts.h"
#include "plugins/plugin.cliframework/StatusResult.h"

namespace orlo::host {

namespace {

const std::string& ssdName = plugin::cli::ssdTargetRequired.name;

}  // namespace

bool takesDrive(const plugin::cli::CommandSpec& spec) {
  return spec.targets.contains(ssdName) || spec.options.contains(ssdName);
}

DriveSelection selectDrive(const plugin::cli::ParsedCommand& command,
                           const orlo::devices::DriveOptions& options) {
  auto ssd = command.targets.find(ssdName);
  if (ssd == nullptr) ssd = command.options.find(ssdName);
  if (ssd == nullptr) return {};
  DriveSelection selection;
  const orlo::core::Status opened = orlo::devices::openDrive(ssd->value, options, selection.device);
  if (!orlo::core::succeeded(opened)) {
    selection.device.reset();
    selection.failure = plugin::cli::makeStatusResult(
        opened.message(), plugin::cli::StatusResult::deviceNotFoundType);
  }
  return selection;
}

}  // namespace orlo::host
