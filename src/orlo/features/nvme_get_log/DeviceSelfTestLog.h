#pragma once

#include <memory>

#include "orlo/core/Payload.h"
#include "orlo/core/xml/XmlObject.h"

namespace orlo::features::nvme_get_log::deviceSelfTest {

// The tree of a Device Self-test log: the operation in progress and how far it has come,
// then a child for each of the 20 results that holds one, newest first, and the number of
// those that hold none. A log shorter than 564 bytes gives the root with a status child.
std::unique_ptr<core::xml::XmlObject> decode(const core::Payload& payload);

}  // namespace orlo::features::nvme_get_log::deviceSelfTest
