// orlo: loads the plug-ins, reads the command line against their commands, runs the
// chosen command and renders its result. See ExitCode.h for what it gives back.

#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "host/ChildSignals.h"
#include "host/CommandChoice.h"
#include "host/CommandRunner.h"
#include "host/DriveSelection.h"
#include "host/ExitCode.h"
#include "host/HelpWriter.h"
#include "host/HostCommands.h"
#include "host/HostSettings.h"
#include "host/InstallLayout.h"
#include "host/PathGuard.h"
#include "host/PluginSet.h"
#include "host/ProviderPath.h"
#include "host/ResultRenderer.h"
#include "plugins/plugin.cliframework/SharedParts.h"

namespace orlo::host {

namespace {

int exitWith(ExitCode code) {
  return static_cast<int>(code);
}

int refuse(const std::string& message) {
  std::cerr << "orlo: " << message << std::endl;
  return exitWith(ExitCode::refused);
}

int answer(const plugin::cli::ResultBase& result, const HostSettings& settings) {
  std::cout << render(result, settings.outputFormat) << std::flush;
  return exitWith(exitCodeFor(result));
}

// Everything a plug-in hands back is gone when this returns, before the plug-ins
// are unloaded.
int runCommandLine(const plugin::cli::PluginRegistry& registry, const HostSettings& settings,
                   const InstallLayout& layout, const std::vector<std::string>& words) {
  plugin::cli::CommandSpecs specs = registry.commands;
  specs.insert(specs.end(), hostCommandSpecs().begin(), hostCommandSpecs().end());
  if (asksForHelp(words)) {
    std::cout << writeHelp(specs, words);
    return exitWith(ExitCode::success);
  }
  CommandChoice choice = chooseCommand(specs, words);
  if (choice.spec == nullptr) return refuse(choice.error);
  if (isHostCommand(*choice.spec)) {
    return answer(*runHostCommand(*choice.spec, choice.command, settings.drives), settings);
  }
  // "-output" is the host's; a command that declares it checks its value as well.
  if (settings.outputGiven && choice.spec->options.contains(plugin::cli::outputOption.name)) {
    auto output = std::make_shared<plugin::cli::ParsedArgument>();
    output->kind = plugin::cli::CommandSpecPart::optionKind;
    output->name = plugin::cli::outputOption.name;
    output->value = settings.outputFormat;
    choice.command.options.add(output);
  }
  if (auto unsafe = findUnsafePath(choice.command)) return refuse(*unsafe);
  DriveSelection drive;
  if (takesDrive(*choice.spec)) drive = selectDrive(choice.command, settings.drives);
  if (drive.failure) return answer(*drive.failure, settings);

  putFirstOnPath(layout.providerDirectory());
  passTerminationToChildren();
  const RunOutcome outcome = runCommand(registry, choice.spec, choice.command, drive.device);
  if (outcome.result == nullptr) {
    std::cout.flush();
    std::cerr << "orlo: " << outcome.failure << std::endl;
    return exitWith(ExitCode::pluginFailed);
  }
  return answer(*outcome.result, settings);
}

}  // namespace

}  // namespace orlo::host

int main(int argc, char** argv) {
  using namespace orlo::host;
  std::vector<std::string> words(argv + 1, argv + argc);
  const InstallLayout layout = InstallLayout::ofRunningProgram();
  HostSettings settings;
  settings.pluginDirectory = layout.pluginDirectory();
  if (auto error = takeHostFlags(words, settings)) return refuse(*error);

  PluginSet plugins;
  if (auto failure = plugins.load(settings.pluginDirectory, settings.logFile)) {
    std::cerr << "orlo: " << *failure << std::endl;
    return exitWith(ExitCode::pluginFailed);
  }
  return runCommandLine(plugins.registry(), settings, layout, words);
}
