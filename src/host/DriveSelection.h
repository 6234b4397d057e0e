#pragma once

#include <memory>

#include "devices/DriveChoice.h"
#include "orlo/core/Device.h"
#include "plugins/plugin.cliframework/CommandSpec.h"
#include "plugins/plugin.cliframework/ParsedCommand.h"
#include "plugins/plugin.cliframework/ResultBase.h"

namespace orlo::host {

// The drive that the "-ssd" of a command line names, opened through the device
// backends, or why it could not be: a result of type 1 with the backend's message
// (no drive matches, the node cannot be opened, the drive does not answer).
struct DriveSelection {
  std::shared_ptr<orlo::core::Device> device;
  std::shared_ptr<plugin::cli::ResultBase> failure;
};

// Whether the command declares "-ssd", as a target or an option.
bool takesDrive(const plugin::cli::CommandSpec& spec);

// Opens the drive of the command's "-ssd"; neither a device nor a failure when the
// command line has no "-ssd".
DriveSelection selectDrive(const plugin::cli::ParsedCommand& command,
                           const orlo::devices::DriveOptions& options);

}  // namespace orlo::host
