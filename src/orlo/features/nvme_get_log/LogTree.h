#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "orlo/core/Payload.h"
#include "orlo/core/xml/XmlObject.h"
#include "orlo/core/xml/XmlProperty.h"

// The two kinds of element from which a log page's tree is built, and the mark of a log too
// short to be decoded.
namespace orlo::features::nvme_get_log {

// An "Object" named `name`, with the same text as its key.
std::unique_ptr<core::xml::XmlObject> namedObject(const std::string& name);

// Appends a "Property" that has a name and a value and nothing else; the value is kept as
// it stands, and is the property's keyed text under the key of its name.
core::xml::XmlProperty& addNameValue(core::xml::XmlObject& parent, std::string name,
                                     std::string value);

// Whether `payload` holds `size` bytes or more; if not, `root` gets the status child that
// says the drive's data could not be read.
bool holdsLog(core::xml::XmlObject& root, const core::Payload& payload, uint32_t size);

}  // namespace orlo::features::nvme_get_log
