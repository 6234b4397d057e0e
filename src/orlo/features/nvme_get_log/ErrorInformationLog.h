#pragma once

#include <memory>

#include "orlo/core/Payload.h"
#include "orlo/core/xml/XmlObject.h"

namespace orlo::features::nvme_get_log::errorInformation {

// The tree of an Error Information log of any number of 64-byte entries: a child for each
// entry in use (an Error Count of 0 marks one that is not), named by its place in the log,
// and the number of entries not in use. A log shorter than one entry gives the root with a
// status child.
std::unique_ptr<core::xml::XmlObject> decode(const core::Payload& payload);

}  // namespace orlo::features::nvme_get_log::errorInformation
