// Attribute conversions over every type tag and any text, and asString over any stored
// bytes. Only the documented exceptions may leave setValue: the conversion errors of a
// "double" (std::invalid_argument, std::out_of_range) and of a "uint128" (the 128-bit
// library's std::runtime_error). Any other exception ends the run as a finding.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

#include "orlo/core/Attribute.h"
#include "orlo/core/AttributeType.h"
#include "orlo/core/Status.h"
#include "orlo/core/xml/XmlProperty.h"

namespace {

using orlo::core::Attribute;
namespace type = orlo::core::attributeType;

void setValue(Attribute& attribute, const std::string& text) {
  try {
    const orlo::core::Status status = attribute.setValue(text);
    // A refused text leaves the value empty.
    if (status.code() != 0 && attribute.value.size() != 0) std::abort();
  } catch (const std::logic_error&) {
    if (attribute.type != "double" && attribute.type != type::uint128()) throw;
  } catch (const std::runtime_error&) {
    if (attribute.type != type::uint128()) throw;
  }
}

void readBack(const Attribute& attribute, size_t width) {
  attribute.asBool();
  attribute.asStringList();
  attribute.storedNumber(width);
  attribute.storedText();
  std::string xml;
  attribute.toXml()->write(xml);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FuzzedDataProvider input(data, size);
  const std::string tags[] = {type::string(),
                              type::sint16(),
                              type::sint32(),
                              type::sint64(),
                              type::uint8(),
                              type::uint16(),
                              type::uint32(),
                              type::uint64(),
                              type::uint128(),
                              type::ulong(),
                              type::boolean(),
                              type::bytePointer(),
                              type::listUInt64(),
                              type::vectorOfStrings(),
                              type::vectorOfPayloads(),
                              "sint8",
                              "double",
                              "hexValue",
                              input.ConsumeRandomLengthString(12)};
  Attribute attribute("Name", "Display", input.PickValueInArray(tags));
  const size_t width = input.ConsumeIntegralInRange<size_t>(0, 16);

  if (input.ConsumeBool()) {
    const std::vector<uint8_t> bytes = input.ConsumeRemainingBytes<uint8_t>();
    attribute.value = orlo::core::Payload(bytes.data(), bytes.size());
  } else {
    setValue(attribute, input.ConsumeRemainingBytesAsString());
  }
  readBack(attribute, width);
  // What asString gives is text a user could type back in.
  setValue(attribute, attribute.asString());
  readBack(attribute, width);
  return 0;
}
