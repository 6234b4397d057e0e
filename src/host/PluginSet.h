#pragma once

#include <boost/dll/shared_library.hpp>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "plugins/plugin.cliframework/PluginRegistry.h"

namespace orlo::host {

// The loaded plug-in libraries and the registry they filled. The registry points
// into the libraries, so it is emptied before they are closed, when the set goes
// away; results made by a plug-in must be gone by then too.
class PluginSet {
 public:
  PluginSet() = default;
  PluginSet(const PluginSet&) = delete;
  PluginSet& operator=(const PluginSet&) = delete;
  ~PluginSet();

  // Loads every "*.so" file of `folder`, in name order: imports its aliases
  // initialize_logger and register_features, points its logging at `logFile` (none
  // when empty) and registers it. Gives the message of the first failure; a library
  // cut short is one, found before it is mapped.
  std::optional<std::string> load(const std::filesystem::path& folder, const std::string& logFile);

  plugin::cli::PluginRegistry& registry() { return registry_; }

 private:
  std::optional<std::string> loadLibrary(const std::filesystem::path& file,
                                         const std::string& logFile);

  std::vector<boost::dll::shared_library> libraries_;
  plugin::cli::PluginRegistry registry_;
};

}  // namespace orlo::host
