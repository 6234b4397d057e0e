#pragma once

#include <memory>

#include "orlo/core/Payload.h"
#include "orlo/core/xml/XmlObject.h"

namespace orlo::features::nvme_get_log::smartHealth {

// The tree of a SMART / Health Information log: every field with its unit, the critical
// warning bit by bit. A log shorter than 512 bytes gives the root with a status child.
std::unique_ptr<core::xml::XmlObject> decode(const core::Payload& payload);

}  // namespace orlo::features::nvme_get_log::smartHealth
