// orlo: loads the plug-ins, reads the command line against their commands, runs the
// chosen command and renders its result. See ExitCode.h for what it gives back.

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "host/ChildSignals.h"
#include "host/CommandChoice.h"
#include "host/CommandRunner.h"
#include "host/DestinationGuard.h"
#include "host/DriveSelection.h"
#include "host/ExitCode.h"
#include "host/HelpWriter.h"
#include "host/HostCommands.h"
#include "host/HostSettings.h"
#include "host/InstallLayout.h"
#include "host/JsonDocument.h"
#include "host/OutputCapture.h"
#include "host/PathGuard.h"
#include "host/PluginSet.h"
#include "host/ProviderPath.h"
#include "host/ResultRenderer.h"
#include "plugins/plugin.cliframework/SharedParts.h"
#include "plugins/plugin.cliframework/Vocabulary.h"

namespace orlo::host {

namespace {

int exitWith(ExitCode code) {
  return static_cast<int>(code);
}

bool wantsJson(const HostSettings& settings) {
  return isJson(settings.outputFormat);
}

// Writes `text` on the standard output and gives `code`. Output that does not get there
// whole (a full disk, a closed pipe) is a failure whatever the command gave, said on the
// standard error: whoever reads the output would take a cut or empty one for the whole.
int emit(const std::string& text, ExitCode code) {
  std::cout.flush();
  errno = 0;
  if (std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0 &&
      !std::ferror(stdout)) {
    return exitWith(code);
  }
  const int error = errno;
  std::cerr << "orlo: Cannot write to the standard output"
            << (error != 0 ? std::string(": ") + std::strerror(error) : std::string()) << "."
            << std::endl;
  return exitWith(ExitCode::commandFailed);
}

// One line on the standard error; with JSON asked for, a document on the standard
// output as well, so that whatever reads it always gets one.
int fail(const std::string& message, ExitCode code, bool json,
         const std::vector<std::string>& printed = {}) {
  std::cout.flush();  // what a plug-in printed comes first
  std::cerr << "orlo: " << message << std::endl;
  return json ? emit(jsonFailure(message, code, printed), code) : exitWith(code);
}

int answer(const plugin::cli::ResultBase& result, const HostSettings& settings,
           const std::vector<std::string>& printed = {}) {
  return emit(render(result, settings.outputFormat, printed), exitCodeFor(result));
}

// Everything a plug-in hands back is gone when this returns, before the plug-ins
// are unloaded.
int runCommandLine(const plugin::cli::PluginRegistry& registry, const HostSettings& settings,
                   const InstallLayout& layout, const std::vector<std::string>& words) {
  const bool json = wantsJson(settings);
  const plugin::cli::CommandSpecs specs = allCommandSpecs(registry);
  if (asksForHelp(words)) {
    if (auto empty = findEmptyHelp(specs, words)) return fail(*empty, ExitCode::refused, json);
    const std::string help = writeHelp(specs, words);
    return emit(json ? jsonHelp(help) : help, ExitCode::success);
  }
  CommandChoice choice = chooseCommand(specs, words);
  if (choice.spec == nullptr) return fail(choice.error, ExitCode::refused, json);
  // The paths of the archive update and of the incident report's archive.
  if (auto unsafe = findUnsafePath(choice.command)) return fail(*unsafe, ExitCode::refused, json);
  if (auto unsafe = findUnsafeDestination(choice.command)) {
    return fail(*unsafe, ExitCode::refused, json);
  }
  if (isHostCommand(*choice.spec)) {
    return answer(*runHostCommand(*choice.spec, choice.command, settings.drives), settings);
  }
  // "-output" is the host's; a command that declares it checks its value as well, and
  // knows both JSON forms as "json".
  if (settings.outputGiven && choice.spec->options.contains(plugin::cli::outputOption.name)) {
    auto output = std::make_shared<plugin::cli::ParsedArgument>();
    output->kind = plugin::cli::CommandSpecPart::optionKind;
    output->name = plugin::cli::outputOption.name;
    output->value = wantsJson(settings) ? plugin::cli::formats::json : settings.outputFormat;
    choice.command.options.add(output);
  }
  DriveSelection drive;
  if (takesDrive(*choice.spec)) drive = selectDrive(choice.command, settings.drives);
  if (drive.failure) return answer(*drive.failure, settings);

  putFirstOnPath(layout.providerDirectory());
  passTerminationToChildren();
  // What the plug-in prints goes into the document rather than ahead of it.
  OutputCapture capture;
  if (json) {
    if (auto error = capture.start()) {
      return fail("Cannot hold what the plug-in prints: " + *error, ExitCode::pluginFailed, json);
    }
  }
  const RunOutcome outcome = runCommand(registry, choice.spec, choice.command, drive.device);
  const std::vector<std::string> printed = json ? capture.finish() : std::vector<std::string>();
  if (outcome.result == nullptr) {
    return fail(outcome.failure, ExitCode::pluginFailed, json, printed);
  }
  return answer(*outcome.result, settings, printed);
}

}  // namespace

}  // namespace orlo::host

int main(int argc, char** argv) {
  using namespace orlo::host;
  std::vector<std::string> words(argv + 1, argv + argc);
  const InstallLayout layout = InstallLayout::ofRunningProgram();
  HostSettings settings;
  settings.pluginDirectory = layout.pluginDirectory();
  if (auto error = takeHostFlags(words, settings)) {
    return fail(*error, ExitCode::refused, asksForJson(words));
  }

  PluginSet plugins;
  if (auto failure = plugins.load(settings.pluginDirectory, settings.logFile)) {
    return fail(*failure, ExitCode::pluginFailed, wantsJson(settings));
  }
  return runCommandLine(plugins.registry(), settings, layout, words);
}
