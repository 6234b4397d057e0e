#pragma once

#include <boost/dll/import.hpp>
#include <boost/dll/shared_library.hpp>
#include <functional>
#include <string>

#include "plugins/plugin.cliframework/PluginRegistry.h"

namespace orlo::testing {

struct PluginEntryPoints {
  std::function<bool(plugin::cli::PluginRegistry&)> registerFeatures;
  std::function<void(bool, const std::string&)> initializeLogger;
};

// The built plug-in's two aliases, imported as a host imports them. The library
// stays loaded until the process ends: its log sink and the objects it registers
// are used by every test.
inline const PluginEntryPoints& loadedPlugin() {
  static const auto* entryPoints = [] {
    const boost::dll::shared_library library(ORLO_UPDATE_IR_PATH, boost::dll::load_mode::rtld_now);
    return new PluginEntryPoints{
        boost::dll::import_alias<bool(plugin::cli::PluginRegistry&)>(library, "register_features"),
        boost::dll::import_alias<void(bool, const std::string&)>(library, "initialize_logger")};
  }();
  return *entryPoints;
}

}  // namespace orlo::testing
