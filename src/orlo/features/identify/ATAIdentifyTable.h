#pragma once

#include <vector>

#include "orlo/features/identify/ATAIdentifyRow.h"

namespace orlo::features::identify::ata {

// The 256 words of IDENTIFY DEVICE data, in order, one row per word or range.
const std::vector<WordRow>& identifyDeviceWords();

}  // namespace orlo::features::identify::ata
