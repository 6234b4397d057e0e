#pragma once

#include <memory>

#include "orlo/core/Device.h"
#include "orlo/core/Status.h"
#include "orlo/features/health/HealthFacts.h"

namespace orlo::features::health {

// Fills `facts` from the controller-wide SMART / Health Information log of an NVMe drive:
// the drive reports itself healthy while no critical-warning bit is set. A drive that cannot
// be asked or refuses the log gives that failure, and `facts` stay as they were.
core::Status readNvmeHealthFacts(const std::shared_ptr<core::Device>& device, HealthFacts& facts);

}  // namespace orlo::features::health
