#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "orlo/core/Device.h"
#include "orlo/features/feature/UUID/GUID16.h"
#include "orlo/features/feature/UUID/RegisteredGUIDs.h"

namespace orlo::features::uuid {

// The index getIndex gives when the drive knows none of the GUIDs asked for.
inline constexpr uint8_t kNoUUIDIndex = 255;

// Finds the UUID index that a log-page command on one drive should carry. The owning
// feature lists the GUIDs it accepts in `supportedUUIDs`, the preferred first; the
// drive's own list is read once per drive and shared by every manager.
class UUIDManager {
 public:
  explicit UUIDManager(const std::shared_ptr<core::Device>& device);

  // A copy of the drive's list, registered first if need be; empty for a drive without
  // UUID support.
  GUIDIndexMap getRegisteredGUIDs();
  // The drive's index of the first GUID in `supportedUUIDs` that the drive knows. Later
  // GUIDs are not looked at, whatever their index. kNoUUIDIndex if none is known.
  uint8_t getIndex();

  std::shared_ptr<core::Device> device;
  std::vector<GUID16> supportedUUIDs;
};

}  // namespace orlo::features::uuid
