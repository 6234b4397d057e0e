#pragma once

#include <memory>
#include <vector>

#include "devices/DriveDiscovery.h"
#include "orlo/core/xml/XmlObject.h"

namespace orlo::host {

// The drives that `orlo show -ssd` lists, as a tree that renders in every output
// format: "Drives", and below it one object a drive, named by its index, with its
// path, protocol, model, serial number and firmware.
std::unique_ptr<orlo::core::xml::XmlObject> driveTree(
    const std::vector<orlo::devices::DriveEntry>& drives);

}  // namespace orlo::host
