#include "host/InstallLayout.h"

#include <boost/dll/runtime_symbol_info.hpp>
#include <utility>

namespace orlo::host {

InstallLayout InstallLayout::ofRunningProgram() {
  return InstallLayout(boost::dll::program_location().parent_path().parent_path());
}

InstallLayout::InstallLayout(std::filesystem::path prefix) : prefix_(std::move(prefix)) {}

std::filesystem::path InstallLayout::pluginDirectory() const {
  return prefix_ / "lib" / "orlo" / "plugins";
}

std::filesystem::path InstallLayout::providerDirectory() const {
  return prefix_ / "libexec" / "orlo";
}

}  // namespace orlo::host
