#pragma once

#include <memory>

#include "orlo/core/xml/XmlObject.h"

namespace orlo::core {
class Payload;
}

namespace orlo::features::identify::nvme::controllerList {

// The count and the controller identifiers of a controller list (CNS 18 and 19). The
// identifiers run to the first zero word, whatever the count says; the root's name is the
// caller's.
std::unique_ptr<core::xml::XmlObject> toXmlObject(const core::Payload& payload);

}  // namespace orlo::features::identify::nvme::controllerList
