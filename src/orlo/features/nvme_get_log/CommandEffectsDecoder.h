#pragma once

#include <memory>

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Payload.h"
#include "orlo/core/xml/XmlObject.h"

namespace orlo::features::nvme_get_log::commandEffects {

// The tree of a Commands Supported and Effects log: one child for each supported Admin and
// I/O command, with the entry's fields that the device's version attributes allow. A log
// shorter than kLogSize gives the root with a status child instead; a log with no supported
// command gives the root with "Commands Supported" 0.
std::unique_ptr<core::xml::XmlObject> decode(const core::Payload& payload,
                                             const core::AttributeCollection& deviceAttributes);

}  // namespace orlo::features::nvme_get_log::commandEffects
