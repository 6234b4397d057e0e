#pragma once

#include "orlo/core/PayloadProperty.h"

namespace orlo::commands::nvme {

// The command dumps of both families build their byte properties with this maker.
using core::makePayloadProperty;

}  // namespace orlo::commands::nvme
