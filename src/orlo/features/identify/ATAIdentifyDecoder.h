#pragma once

#include <memory>

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Payload.h"
#include "orlo/core/xml/XmlObject.h"

namespace orlo::features::identify::ata {

// Turns IDENTIFY DEVICE data into a tree with one child per word or range of words
// and one property per bit field. Data shorter than 512 bytes gives a bare root. The
// serial number, firmware and model number come from the device's attributes.
std::unique_ptr<orlo::core::xml::XmlObject> decodeIdentifyDevice(
    const orlo::core::Payload& payload, const orlo::core::AttributeCollection& deviceAttributes);

}  // namespace orlo::features::identify::ata
