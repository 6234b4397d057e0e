#include "orlo/core/xml/XmlProperty.h"

namespace orlo::core::xml {

namespace {
const char kPropertyElement[] = "Property";
}

XmlProperty::XmlProperty() : XmlElement(kPropertyElement) {}

void XmlProperty::write(std::string& out) const {
  writeStartTag(out, kPropertyElement, "/>");
}

size_t XmlProperty::plainWrittenSize() const {
  return plainStartTagSize(kPropertyElement, "/>");
}

std::unique_ptr<XmlElement> XmlProperty::clone() const {
  auto copy = std::make_unique<XmlProperty>();
  copy->copyAttributes(*this);
  return copy;
}

bool XmlProperty::isEmpty() const {
  return attributes().empty();
}

}  // namespace orlo::core::xml
