#pragma once

#include <memory>

#include "orlo/core/Device.h"
#include "orlo/core/Status.h"
#include "orlo/features/health/HealthFacts.h"

namespace orlo::features::health {

// What an ATA drive reports of its health, from SMART (RETURN STATUS, the attributes
// and their thresholds) and the Device Statistics log where the drive keeps it. Fails
// only when the drive is not ATA or refuses SMART READ DATA.
core::Status readAtaHealthFacts(const std::shared_ptr<core::Device>& device, HealthFacts& facts);

}  // namespace orlo::features::health
