#pragma once

#include <memory>

#include "orlo/core/Payload.h"
#include "orlo/core/xml/XmlObject.h"

namespace orlo::features::nvme_get_log::firmwareSlot {

// The tree of a Firmware Slot Information log: the active slot, the slot for the next
// reset, and the revision in each of the seven slots. A log shorter than 512 bytes gives the
// root with a status child.
std::unique_ptr<core::xml::XmlObject> decode(const core::Payload& payload);

}  // namespace orlo::features::nvme_get_log::firmwareSlot
