#pragma once

#include <memory>

#include "orlo/core/Device.h"
#include "orlo/core/Status.h"
#include "orlo/features/health/HealthFacts.h"

namespace orlo::features::health {

// What a drive reports of its health, asked in its own protocol: an NVMe drive's SMART /
// Health Information log, an ATA drive's SMART and Device Statistics. A drive of
// neither protocol fails with "Device does not support this command set."
core::Status readHealthFacts(const std::shared_ptr<core::Device>& device, HealthFacts& facts);

}  // namespace orlo::features::health
