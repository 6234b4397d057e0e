#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "orlo/core/Payload.h"
#include "orlo/core/xml/XmlObject.h"

// The row types in which the Identify Controller structure is written down, and the small
// interpreter that turns rows into fields, groups and properties.
namespace orlo::features::identify::nvme::controllerData {

// The drive's NVMe version attributes, one bit each. Every attribute is read on its own:
// a drive may claim 1.4 without claiming 1.3.
enum Version : uint8_t { V1_1 = 1, V1_2 = 2, V1_3 = 4, V1_4 = 8, V2_0 = 16 };
using Versions = uint8_t;

// Which version attributes a row needs, all of them, and which ones it must not see.
struct Gate {
  Versions required = 0;
  Versions excluded = 0;

  constexpr bool holds(Versions versions) const {
    return (versions & required) == required && (versions & excluded) == 0;
  }
  constexpr Gate unless(Versions versions) const {
    return Gate{required, static_cast<Versions>(excluded | versions)};
  }
};

constexpr Gate always{};
constexpr Gate since(Versions versions) {
  return Gate{versions, 0};
}

// How a value is shown.
enum Form : uint8_t {
  Empty,        // ""
  Decimal,      // unsigned decimal
  Hex,          // "0x", no minimum width
  Hex2,         // "0x", at least 2 digits
  Hex4,         // "0x", at least 4 digits
  Hex8,         // "0x", at least 8 digits
  Text,         // the bytes as text, through sanitize
  StoredBytes,  // "0x", two digits a byte in stored order
  Hex128,       // "0x", the high 64 bits then the low 64 bits, 16 digits each
  ZeroBytes,    // "0x" and a zero-filled payload as long as the value, in hexadecimal
  StripeSize,   // decimal and the stripe size it stands for
  FailureMode,  // text through sanitize, "Healthy" when nothing is left
};

// One bit field of a group: bits `high` down to `low`, counted from the group's first byte,
// little-endian.
struct BitRow {
  const char* label;
  const char* description;
  uint16_t high;
  uint16_t low;
  Form form;
  Gate gate = always;
};
using BitRows = std::vector<BitRow>;

// One field of the structure: the label printed, the bytes read, how they are shown, when
// the row exists, and, for a group, its bit rows. Where `fullGate` fails, the row stands as
// "Reserved" with an empty value.
struct FieldRow {
  const char* label;
  const char* description;
  uint16_t offset;
  uint16_t length;
  Form form;
  Gate gate = always;
  const BitRows* group = nullptr;
  Gate fullGate = always;
};
using FieldRows = std::vector<FieldRow>;

// A reserved range: description "Reserved", nothing read, an empty value.
FieldRow reserved(const char* label, Gate gate = always);

// Appends to `parent`, in order, the rows whose gates hold.
void addFields(core::xml::XmlObject& parent, const core::Payload& payload, const FieldRows& rows,
               Versions versions);

// Appends one field: the `length` bytes at `offset` shown in `form`, and, for a group, the
// rows of `group` whose gates hold, their bits counted from `offset`.
void addField(core::xml::XmlObject& parent, const core::Payload& payload, const std::string& label,
              const std::string& description, uint32_t offset, uint32_t length, Form form,
              const BitRows* group, Versions versions);

}  // namespace orlo::features::identify::nvme::controllerData
