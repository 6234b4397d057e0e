#pragma once

#include <memory>

#include "devices/DriveChoice.h"
#include "plugins/plugin.cliframework/CommandSpec.h"
#include "plugins/plugin.cliframework/ParsedCommand.h"
#include "plugins/plugin.cliframework/PluginRegistry.h"
#include "plugins/plugin.cliframework/ResultBase.h"

namespace orlo::host {

// The commands that the host serves itself, because they concern the drives rather
// than a feature of a plug-in:
//   orlo show -ssd                     "Drives": the drives found, with their index
//   orlo capture -ssd X -image DIR     "Capture": records a drive into a device image
//   orlo metrics [-ssd X] [-file PATH] "Metrics": the drives' health for Prometheus
//   orlo report [-ssd X] -destination IR.zip [-force]
//                                      "Report": an incident report of one or every drive
// They are read and helped like the plug-ins' commands, and come after them, so that
// a line that fits no command is refused with the words of a plug-in's command. A
// "show -ssd" with a drive behind it is not theirs.
const plugin::cli::CommandSpecs& hostCommandSpecs();

// What orlo reads a command line against and its help and manual page show: the
// commands of the plug-ins in `registry`, then the host's.
plugin::cli::CommandSpecs allCommandSpecs(const plugin::cli::PluginRegistry& registry);

// Whether `spec` is one of hostCommandSpecs.
bool isHostCommand(const plugin::cli::CommandSpec& spec);

// Runs a host command on the parsed command line.
std::shared_ptr<plugin::cli::ResultBase> runHostCommand(const plugin::cli::CommandSpec& spec,
                                                        const plugin::cli::ParsedCommand& command,
                                                        const orlo::devices::DriveOptions& options);

}  // namespace orlo::host
