#include "host/CommandRunner.h"

#include <algorithm>
#include <exception>
#include <filesystem>

#include "orlo/core/Status.h"

namespace orlo::host {

namespace {

std::string oneLine(std::string text) {
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

std::string libraryOf(const plugin::cli::PluginRegistry& registry,
                      const plugin::cli::FeatureBase* owner) {
  const auto found = std::find(registry.plugins.begin(), registry.plugins.end(), owner);
  const auto index = static_cast<std::size_t>(found - registry.plugins.begin());
  if (index >= registry.pluginFiles.size()) return "an unknown library";
  return std::filesystem::path(registry.pluginFiles[index]).filename().string();
}

// Lends the drive to a plug-in for one command: the plug-in keeps what it is given,
// and the drive is closed when the host lets go of it, not when the plug-in is
// unloaded.
class DeviceLoan {
 public:
  DeviceLoan(plugin::cli::FeatureBase& owner, const std::shared_ptr<orlo::core::Device>& device)
      : owner_(owner), lent_(device != nullptr) {
    if (lent_) owner_.registerDevice(device);
  }
  DeviceLoan(const DeviceLoan&) = delete;
  DeviceLoan& operator=(const DeviceLoan&) = delete;
  ~DeviceLoan() {
    if (lent_) owner_.registerDevice(nullptr);
  }

 private:
  plugin::cli::FeatureBase& owner_;
  bool lent_;
};

}  // namespace

RunOutcome runCommand(const plugin::cli::PluginRegistry& registry,
                      const std::shared_ptr<plugin::cli::CommandSpec>& spec,
                      const plugin::cli::ParsedCommand& command,
                      const std::shared_ptr<orlo::core::Device>& device) {
  auto* owner = registry.commandOwners.at(spec.get());
  const std::string label = spec->name + " (" + libraryOf(registry, owner) + ") ";
  try {
    const DeviceLoan loan(*owner, device);
    auto result = owner->execute(spec->id, command);
    if (result == nullptr) return {nullptr, label + "gave no result."};
    return {std::move(result), ""};
  } catch (const std::exception& error) {
    return {nullptr, label + "failed: " + oneLine(error.what())};
  } catch (const orlo::core::Status& status) {
    return {nullptr, label + "failed: " + oneLine(status.message())};
  } catch (...) {
    return {nullptr, label + "failed with an exception of unknown type."};
  }
}

}  // namespace orlo::host
