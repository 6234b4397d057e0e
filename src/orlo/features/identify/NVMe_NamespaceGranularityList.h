#pragma once

#include <memory>

#include "orlo/core/xml/XmlObject.h"

namespace orlo::core {
class Payload;
}

namespace orlo::features::identify::nvme::namespaceGranularityList {

// The Namespace Granularity List (CNS 22), which needs only its first 288 bytes; the root
// has no name.
std::unique_ptr<core::xml::XmlObject> toXmlObject(const core::Payload& payload);

}  // namespace orlo::features::identify::nvme::namespaceGranularityList
