// The host's road up to the run: its own flags, the help, the choice of a command against
// the incident-report plug-in's command specification and a device command's, and the
// path guard; then the rendering of a result in the chosen format. The guard is checked
// from the other side: whatever reaches the feature as "-source" or "-destination", once
// the plug-in has taken the arguments, holds nothing the shell would read.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "JsonShape.h"
#include "host/CommandChoice.h"
#include "host/ExitCode.h"
#include "host/HelpWriter.h"
#include "host/HostSettings.h"
#include "host/PathGuard.h"
#include "host/ResultRenderer.h"
#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Strings.h"
#include "plugins/plugin.cliframework/SharedParts.h"
#include "plugins/plugin.cliframework/StatusResult.h"
#include "plugins/plugin.cliframework/Vocabulary.h"
#include "plugins/update_ir/UpdateIRPlugin.h"

namespace {

using namespace plugin::cli;

// The plug-in, with the attributes its feature would run with in view.
class PluginProbe : public UpdateIRPlugin {
 public:
  const orlo::core::AttributeCollection& featureAttributes() const { return feature->attributes; }
};

CommandSpecs commandSpecs(const PluginProbe& plugin) {
  CommandSpecs specs = plugin.getCommandSpecs();
  auto device = std::make_shared<CommandSpec>(1, "ShowDevice", "A device command", verbs::show);
  device->targets.add(std::make_shared<CommandSpecPart>(ssdTargetRequiredValue));
  for (const CommandSpecPart& part :
       {namespaceOption, allOption, displayOption, outputOption, forceOption, helpOption}) {
    device->addOption(part);
  }
  device->addProperty(nameProperty);
  specs.push_back(device);
  return specs;
}

bool shellReadable(const std::string& path) {
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte <= ' ' || byte == 0x7f ||
        std::string(";&|$`<>()*?[]{}~#\"'\\").find(c) != std::string::npos) {
      return true;
    }
  }
  return false;
}

void parseAndGuard(PluginProbe& plugin, const CommandSpecs& specs, std::vector<std::string> words,
                   orlo::host::HostSettings& settings) {
  if (orlo::host::takeHostFlags(words, settings)) return;
  const std::string& format = settings.outputFormat;
  if (format != formats::text && format != formats::json && format != formats::xml &&
      format != formats::csv) {
    std::abort();
  }
  if (orlo::host::asksForHelp(words)) {
    orlo::host::writeHelp(specs, words);
    return;
  }
  const orlo::host::CommandChoice choice = orlo::host::chooseCommand(specs, words);
  if (choice.spec == nullptr) {
    if (choice.error.empty()) std::abort();
    return;
  }
  if (orlo::host::findUnsafePath(choice.command) || choice.spec->id != 0) return;
  if (plugin.checkSyntax(choice.spec->id, choice.command) != nullptr) return;
  if (plugin.applyArguments(choice.command) != nullptr) return;
  for (const char* name : {"-source", "-destination"}) {
    if (shellReadable(orlo::core::getString(plugin.featureAttributes(), name))) std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static PluginProbe plugin;
  static const CommandSpecs specs = commandSpecs(plugin);
  FuzzedDataProvider input(data, size);

  std::vector<std::string> words;
  for (size_t count = input.ConsumeIntegralInRange(0, 12); count > 0; --count) {
    words.push_back(input.ConsumeRandomLengthString(32));
    // The flag reads the file it names, which could be one that never ends.
    if (orlo::core::strings::iequals(words.back(), "-maker-vendors-file")) return 0;
  }
  orlo::host::HostSettings settings;
  parseAndGuard(plugin, specs, words, settings);

  const int32_t type = input.ConsumeIntegral<int32_t>();
  const StatusResult result(input.ConsumeRemainingBytesAsString(), type);
  const std::string rendered = orlo::host::render(result, settings.outputFormat);
  if (settings.outputFormat == formats::json) checkJsonShape(rendered);
  const bool succeeded = orlo::host::exitCodeFor(result) == orlo::host::ExitCode::success;
  if (succeeded != (type == 0)) std::abort();
  return 0;
}
