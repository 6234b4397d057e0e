#pragma once

#include <memory>

#include "orlo/core/xml/XmlObject.h"
#include "orlo/features/health/HealthFacts.h"

namespace orlo::features::health {

// The health summary of one drive as a tree, in the same shape for NVMe and ATA:
// protocol, verdict, the drive's problems and notes, temperature, power-on hours,
// percentage used, media errors, unsafe shutdowns, available spare against its
// threshold, and for NVMe each critical-warning bit by name. A fact the drive does not
// report reads "Not reported".
std::unique_ptr<core::xml::XmlObject> summaryTree(const HealthFacts& facts);

}  // namespace orlo::features::health
