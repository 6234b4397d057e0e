#pragma once

#include <memory>

#include "orlo/core/xml/XmlObject.h"

namespace orlo::core {
class Payload;
}

namespace orlo::features::identify::nvme::namespaceIdentification {

// The namespace identification descriptors (CNS 3), walked by their lengths up to one of
// zero. The root keeps its name also for a short payload.
std::unique_ptr<core::xml::XmlObject> toXmlObject(const core::Payload& payload);

}  // namespace orlo::features::identify::nvme::namespaceIdentification
