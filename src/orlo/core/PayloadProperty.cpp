#include "orlo/core/PayloadProperty.h"

#include "orlo/core/AttributeType.h"
#include "orlo/core/Strings.h"
#include "orlo/core/xml/XmlProperty.h"

namespace orlo::core {

std::unique_ptr<xml::XmlProperty> makePayloadProperty(const uint8_t* bytes, uint32_t size) {
  auto property = std::make_unique<xml::XmlProperty>();
  property->attribute("category") = "payload";
  property->attribute("type") = attributeType::bytePointer();
  property->attribute("displayName") = "payload";
  property->attribute("name") = "payload";
  property->attribute("value") = strings::toHexString(bytes, size);
  property->attribute("size") = strings::toString(static_cast<uint64_t>(size));
  return property;
}

}  // namespace orlo::core
