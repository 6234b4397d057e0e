#include "host/PluginSet.h"

#include <dlfcn.h>

#include <algorithm>
#include <boost/dll/import.hpp>
#include <system_error>

#include "host/LibraryFile.h"

namespace orlo::host {

namespace {

using RegisterFeatures = bool(plugin::cli::PluginRegistry&);
using InitializeLogger = void(bool, const std::string&);

// A plug-in that sets up logging leaves its own objects (sink, filter, attributes,
// logger) in the process-wide logging core, which is destroyed only at exit. Its code
// must therefore stay mapped until then: closing the library releases it, but does
// not unmap it.
const auto loadMode =
    boost::dll::load_mode::rtld_now | static_cast<boost::dll::load_mode::type>(RTLD_NODELETE);

}  // namespace

PluginSet::~PluginSet() {
  registry_.commandOwners.clear();
  registry_.plugins.clear();
  registry_.pluginFiles.clear();
  registry_.commands.clear();
  libraries_.clear();
}

std::optional<std::string> PluginSet::load(const std::filesystem::path& folder,
                                           const std::string& logFile) {
  std::error_code error;
  std::vector<std::filesystem::path> files;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (entry->path().extension() == ".so" && entry->is_regular_file()) {
      files.push_back(entry->path());
    }
  }
  if (error) {
    return "Cannot read the plug-in folder " + folder.string() + ": " + error.message() + ".";
  }
  std::sort(files.begin(), files.end());
  for (const auto& file : files) {
    if (auto failure = loadLibrary(file, logFile)) return failure;
  }
  return std::nullopt;
}

std::optional<std::string> PluginSet::loadLibrary(const std::filesystem::path& file,
                                                  const std::string& logFile) {
  if (auto problem = findCutShortLibrary(file)) {
    return "Cannot load the plug-in " + file.string() + ": " + *problem;
  }
  try {
    // Kept from the start, so that whatever the library has put into the registry
    // is dropped before the library goes.
    const auto& library = libraries_.emplace_back(file, loadMode);
    auto initializeLogger =
        boost::dll::import_alias<InitializeLogger>(library, "initialize_logger");
    auto registerFeatures =
        boost::dll::import_alias<RegisterFeatures>(library, "register_features");
    initializeLogger(!logFile.empty(), logFile);
    registerFeatures(registry_);
    registry_.pluginFiles.resize(registry_.plugins.size(), file.string());
  } catch (const std::exception& failure) {
    return "Cannot load the plug-in " + file.string() + ": " + failure.what();
  }
  return std::nullopt;
}

}  // namespace orlo::host
