#pragma once

#include <memory>
#include <string>

#include "orlo/core/xml/XmlObject.h"

// The two kinds of element from which a log page's tree is built.
namespace orlo::features::nvme_get_log {

// An "Object" named `name`, with the same text as its key.
std::unique_ptr<core::xml::XmlObject> namedObject(const std::string& name);

// Appends a "Property" that has a name and a value and nothing else; the value is kept as
// it stands.
void addNameValue(core::xml::XmlObject& parent, std::string name, std::string value);

}  // namespace orlo::features::nvme_get_log
