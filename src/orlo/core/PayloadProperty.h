#pragma once

#include <cstdint>
#include <memory>

namespace orlo::core {

namespace xml {
class XmlProperty;
}

// A "Property" element for raw data: category "payload", type "bytepointer", name
// and displayName "payload", the bytes as upper-case hexadecimal, and the size.
// Command dumps rename it afterwards.
std::unique_ptr<xml::XmlProperty> makePayloadProperty(const uint8_t* bytes, uint32_t size);

}  // namespace orlo::core
