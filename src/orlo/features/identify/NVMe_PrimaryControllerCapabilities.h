#pragma once

#include <memory>

#include "orlo/core/xml/XmlObject.h"

namespace orlo::core {
class Payload;
}

namespace orlo::features::identify::nvme::primaryControllerCapabilities {

// The Primary Controller Capabilities structure (CNS 20).
std::unique_ptr<core::xml::XmlObject> toXmlObject(const core::Payload& payload);

}  // namespace orlo::features::identify::nvme::primaryControllerCapabilities
