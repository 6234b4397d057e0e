#pragma once

#include <memory>

#include "orlo/core/xml/XmlObject.h"

namespace orlo::core {
class Payload;
}

namespace orlo::features::identify::nvme::namespaceList {

// The namespace identifiers of a list reply (CNS 2, 16 and 26), up to the first zero.
// The root keeps its name also for a short payload.
std::unique_ptr<core::xml::XmlObject> toXmlObject(const core::Payload& payload);

}  // namespace orlo::features::identify::nvme::namespaceList
