#include "orlo/features/health/DriveHealthFacts.h"

#include "orlo/features/health/ATAHealthFacts.h"
#include "orlo/features/health/NVMeHealthFacts.h"

namespace orlo::features::health {

core::Status readHealthFacts(const std::shared_ptr<core::Device>& device, HealthFacts& facts) {
  if (device->supportsProtocol("NVME")) return readNvmeHealthFacts(device, facts);
  if (device->supportsProtocol("ATA")) return readAtaHealthFacts(device, facts);
  return core::Status(35, "Device does not support this command set.");
}

}  // namespace orlo::features::health
