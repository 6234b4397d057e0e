#include "host/DriveList.h"

#include <string>

#include "plugins/plugin.cliframework/ResultMakers.h"
#include "plugins/plugin.cliframework/StatusResult.h"
#include "plugins/plugin.cliframework/XmlTreeResult.h"

namespace orlo::host {

std::shared_ptr<plugin::cli::ResultBase> driveList(
    const std::vector<orlo::devices::DriveEntry>& drives, const std::filesystem::path& sysRoot) {
  if (drives.empty()) {
    return plugin::cli::makeStatusResult(
        "No drive found: orlo looked for " + orlo::devices::drivePlaces(sysRoot) + ".",
        plugin::cli::StatusResult::deviceNotFoundType);
  }
  auto root = std::make_unique<orlo::core::xml::XmlObject>();
  root->attribute("name") = "Drives";
  for (const auto& drive : drives) {
    auto entry = std::make_unique<orlo::core::xml::XmlObject>();
    // The rows of one drive: what "-ssd" takes first, then what tells the drives apart.
    const std::pair<const char*, std::string> rows[] = {
        {"Index", std::to_string(drive.index)}, {"Path", drive.path},
        {"Protocol", drive.protocol},           {"Model Number", drive.model},
        {"Serial Number", drive.serial},        {"Firmware", drive.firmware},
    };
    for (const auto& [label, value] : rows) entry->addProperty(label, "", value);
    root->addObject("Drive " + std::to_string(drive.index), std::move(entry));
  }
  return std::make_shared<plugin::cli::XmlTreeResult>(std::move(root));
}

}  // namespace orlo::host
