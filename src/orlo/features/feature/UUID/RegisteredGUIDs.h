#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "orlo/core/Device.h"
#include "orlo/features/feature/UUID/GUID16.h"

namespace orlo::features::uuid {

// A drive's UUID list: each GUID with its index in the list, 1 for the first entry,
// and ZeroGUID with index 0.
using GUIDIndexMap = std::map<GUID16, uint8_t>;

// Each drive's list by serial number, learned once for the life of the process. It has
// no lock and is never emptied.
extern std::map<std::string, GUIDIndexMap> registeredGUIDs;

// Reads the drive's UUID list with Identify (CNS 23) and stores it under the drive's
// serial number, once per serial number and only for a drive with UUID support. A
// failed Identify is stored too, as the ZeroGUID row alone, and is not tried again.
void registerSupportedGUIDs(const std::shared_ptr<core::Device>& device);

}  // namespace orlo::features::uuid
