#pragma once

#include <memory>

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Payload.h"
#include "orlo/core/xml/XmlObject.h"

namespace orlo::features::identify::nvme::controllerData {

// The tree of an Identify Controller reply: its fields as far as the drive's NVMe version
// attributes reach, the power state descriptors, and the vendor fields that the drive's
// `Product` and `OEM` call for. A payload shorter than 4096 bytes gives an empty root.
std::unique_ptr<core::xml::XmlObject> toXmlObject(const core::Payload& payload,
                                                  const core::AttributeCollection& attributes);

}  // namespace orlo::features::identify::nvme::controllerData
