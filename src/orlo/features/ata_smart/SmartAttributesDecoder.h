#pragma once

#include <memory>

#include "orlo/core/Payload.h"
#include "orlo/core/xml/XmlObject.h"
#include "orlo/features/ata_smart/SmartAttributes.h"

namespace orlo::features::ata_smart {

// The SMART attribute table as a tree: the overall verdict, then one child per used
// attribute with its name, flags, values, threshold, raw value and state. Data shorter
// than a sector gives the verdict alone.
std::unique_ptr<core::xml::XmlObject> decodeSmartAttributes(const core::Payload& data,
                                                            const core::Payload& thresholds,
                                                            SmartVerdict verdict);

}  // namespace orlo::features::ata_smart
