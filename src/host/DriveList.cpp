#include "host/DriveList.h"

#include <string>

#include "orlo/core/xml/XmlProperty.h"
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
    // The keys of the JSON form are smartctl's where it has them.
    const struct {
      const char* label;
      const char* key;
      std::string value;
    } rows[] = {
        {"Path", "path", drive.path},
        {"Protocol", "protocol", drive.protocol},
        {"Model Number", "model_name", drive.model},
        {"Serial Number", "serial_number", drive.serial},
        {"Firmware", "firmware_version", drive.firmware},
    };
    entry->addProperty("Index", "", std::to_string(drive.index)).keyed() =
        orlo::core::xml::Keyed::number("index", drive.index);
    for (const auto& row : rows) {
      entry->addProperty(row.label, "", row.value).keyed() =
          orlo::core::xml::Keyed::text(row.key, row.value);
    }
    root->addObject("Drive " + std::to_string(drive.index), std::move(entry)).keyed() =
        orlo::core::xml::Keyed::entryObject("drives");
  }
  return std::make_shared<plugin::cli::XmlTreeResult>(std::move(root));
}

}  // namespace orlo::host
