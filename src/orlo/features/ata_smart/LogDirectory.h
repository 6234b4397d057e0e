#pragma once

#include <cstdint>

#include "orlo/core/Payload.h"

namespace orlo::features::ata_smart {

// The number of pages that the General Purpose Log directory (log 0, page 0) gives
// the log at `logAddress`; 0 when the directory is too short to say.
uint16_t logPages(const core::Payload& directory, uint8_t logAddress);

}  // namespace orlo::features::ata_smart
