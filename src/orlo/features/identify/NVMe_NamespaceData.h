#pragma once

#include <memory>

#include "orlo/core/xml/XmlObject.h"

namespace orlo::core {
class AttributeCollection;
class Payload;
}  // namespace orlo::core

// The Identify Namespace structure (CNS 0 and 17) as an XML tree.
namespace orlo::features::identify::nvme::namespaceData {

// The root of the tree, which it marks as a namespace structure.
class XmlObject : public core::xml::XmlObject {
 public:
  ~XmlObject() override;
};

// The tree of a 4096-byte structure, shown as far as the device's NVMe version reaches.
// A shorter payload gives a root with no attributes and no children.
std::unique_ptr<core::xml::XmlObject> toXmlObject(
    const core::Payload& payload, const core::AttributeCollection& deviceAttributes);

}  // namespace orlo::features::identify::nvme::namespaceData
