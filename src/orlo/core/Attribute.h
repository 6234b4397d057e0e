#pragma once

#include <boost/multiprecision/cpp_int.hpp>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "orlo/core/Payload.h"
#include "orlo/core/Status.h"

namespace orlo::core {

namespace xml {
class XmlProperty;
}

// A named, labelled cell whose contents are raw bytes and whose meaning is a type
// tag held as text (see AttributeType.h). Numbers are stored little-endian, texts
// with a terminating zero byte that counts in the payload's size. Copies share the
// payload's buffer.
//
// Text goes in through setValue and comes out through asString, and the two are
// not symmetric: setValue takes no negative number, reads "" as 0 for every number
// type, and leaves "uint128" texts to the 128-bit library's own prefix rules.
class Attribute {
 public:
  Attribute() = default;
  Attribute(std::string name, std::string displayName, std::string type);
  Attribute(const Attribute& other) = default;
  // A copy of the descriptor holding the text as a string value, whatever its type.
  Attribute(const Attribute& descriptor, const std::string& text);
  // A copy of the descriptor holding the number in 4 bytes.
  Attribute(const Attribute& descriptor, uint32_t number);
  Attribute& operator=(const Attribute& other) = default;

  // Typed writers: each replaces the value with a new payload and ignores the tag.
  void setStringValue(const std::string& text);
  void setUInt8(uint8_t number);
  void setUInt16(uint16_t number);
  void setUInt32(uint32_t number);
  void setUInt128(boost::multiprecision::uint128_t number);

  // Converts a user's text according to the tag. A text that does not fit the tag
  // gives status 40 and leaves the value empty. The conversion errors of "double"
  // (std::invalid_argument, std::out_of_range) and "uint128" (std::runtime_error)
  // are thrown and leave the value as it was.
  Status setValue(const std::string& text);

  // True exactly when the first byte is 1; false for an empty value.
  bool asBool() const;
  // The value as text according to the tag; an empty text for unknown tags.
  std::string asString() const;
  // The value read as texts joined by "~"; empty pieces are kept.
  std::vector<std::string> asStringList() const;

  // Up to `width` bytes of the value, low byte first, zero-extended; 0 when empty.
  uint64_t storedNumber(std::size_t width) const;
  // The stored bytes without the last one (the terminating zero of a text).
  std::string storedText() const;

  // A "Property" element with category, type, description (only when not empty),
  // displayName, name, value (asString) and size.
  std::unique_ptr<xml::XmlProperty> toXml() const;

  std::string name;
  std::string displayName;
  std::string description;
  Payload value;
  std::string type;

 private:
  void storeLittleEndian(uint64_t number, std::size_t width);
  Status storeNumber(const std::string& text);
  void storeDouble(const std::string& text);
};

}  // namespace orlo::core
