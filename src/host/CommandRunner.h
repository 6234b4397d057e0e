#pragma once

#include <memory>
#include <string>

#include "orlo/core/Device.h"
#include "plugins/plugin.cliframework/PluginRegistry.h"

namespace orlo::host {

// What came back from a plug-in: its result, or, when it gave none or an exception
// left it, one line that says so.
struct RunOutcome {
  std::shared_ptr<plugin::cli::ResultBase> result;
  std::string failure;
};

// Runs the command through `execute` of the plug-in that owns `spec`, with `device`,
// when there is one, registered with the plug-in for the length of the run. Every
// exception is caught here; its line names the command, the plug-in's library and
// the exception's text, which for a file-system error holds the operation and the
// paths.
RunOutcome runCommand(const plugin::cli::PluginRegistry& registry,
                      const std::shared_ptr<plugin::cli::CommandSpec>& spec,
                      const plugin::cli::ParsedCommand& command,
                      const std::shared_ptr<orlo::core::Device>& device);

}  // namespace orlo::host
