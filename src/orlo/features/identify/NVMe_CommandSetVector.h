#pragma once

#include <memory>

#include "orlo/core/xml/XmlObject.h"

namespace orlo::core {
class Payload;
}

namespace orlo::features::identify::nvme::commandSetVector {

// The I/O Command Set Vector list (CNS 28): the vectors up to the first zero one, each as
// four properties of the root, which has no name.
std::unique_ptr<core::xml::XmlObject> toXmlObject(const core::Payload& payload);

}  // namespace orlo::features::identify::nvme::commandSetVector
