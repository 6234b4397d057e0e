#include "host/DriveList.h"

#include <string>

namespace orlo::host {

std::unique_ptr<orlo::core::xml::XmlObject> driveTree(
    const std::vector<orlo::devices::DriveEntry>& drives) {
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
  return root;
}

}  // namespace orlo::host
