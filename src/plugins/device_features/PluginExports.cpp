// The library's whole outer surface: two Boost.DLL aliases in the section "boostdll",
// register_features first. Everything else is hidden (see exports.map).

#include <algorithm>
#include <boost/dll/alias.hpp>
#include <string>

#include "orlo/core/LoggerSetup.h"
#include "plugins/device_features/HealthPlugin.h"
#include "plugins/device_features/IdentifyPlugin.h"
#include "plugins/device_features/LogFilePlugin.h"
#include "plugins/device_features/LogPagePlugin.h"
#include "plugins/plugin.cliframework/PluginRegistry.h"

namespace plugin::cli {

// Registers the plug-in objects, one a command, and their commands. May be called
// more than once: each call appends the objects again, while a command and its owner
// are recorded once.
bool register_features(PluginRegistry& registry) {
  // They live until the library is unloaded; a failed construction is tried again
  // next call.
  static IdentifyPlugin identify;
  static LogPagePlugin logPage;
  static LogFilePlugin logFile;
  static HealthPlugin health;

  for (FeatureBase* plugin :
       {static_cast<FeatureBase*>(&identify), static_cast<FeatureBase*>(&logPage),
        static_cast<FeatureBase*>(&logFile), static_cast<FeatureBase*>(&health)}) {
    registry.plugins.push_back(plugin);
    for (const auto& spec : plugin->getCommandSpecs()) {
      const bool known = std::any_of(registry.commands.begin(), registry.commands.end(),
                                     [&](const auto& held) { return held.get() == spec.get(); });
      if (!known) registry.commands.push_back(spec);
      registry.commandOwners[spec.get()] = plugin;
    }
  }
  return true;
}

// Points this library's logging at the host's log file; with `enabled` false nothing is
// logged.
void initialize_logger(bool enabled, const std::string& fileName) {
  orlo::core::logging::initializeLogger(enabled, fileName);
}

}  // namespace plugin::cli

BOOST_DLL_ALIAS(plugin::cli::register_features, register_features)
BOOST_DLL_ALIAS(plugin::cli::initialize_logger, initialize_logger)
