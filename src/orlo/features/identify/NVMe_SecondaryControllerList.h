#pragma once

#include <memory>

#include "orlo/core/xml/XmlObject.h"

namespace orlo::core {
class Payload;
}

namespace orlo::features::identify::nvme::secondaryControllerList {

// The Secondary Controller List (CNS 21): as many entries as its first byte counts.
std::unique_ptr<core::xml::XmlObject> toXmlObject(const core::Payload& payload);

}  // namespace orlo::features::identify::nvme::secondaryControllerList
