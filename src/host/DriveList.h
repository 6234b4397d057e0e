#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include "devices/DriveDiscovery.h"
#include "plugins/plugin.cliframework/ResultBase.h"

namespace orlo::host {

// The drives that `orlo show -ssd` lists, as a tree that renders in every output
// format: "Drives", and below it one object a drive, named by its index, with its
// path, protocol, model, serial number and firmware. With no drive, a result of the
// type for a drive not found, which says where under `sysRoot` they were looked for:
// an empty list would not tell a machine without drives from a look in the wrong place.
std::shared_ptr<plugin::cli::ResultBase> driveList(
    const std::vector<orlo::devices::DriveEntry>& drives, const std::filesystem::path& sysRoot);

}  // namespace orlo::host
