#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "orlo/core/BitField.h"
#include "orlo/features/identify/NVMeVersionGate.h"

namespace orlo::core {
class Payload;
namespace xml {
class XmlObject;
}
}  // namespace orlo::core

// The rows of an Identify structure as data, and the one interpreter that turns them into
// fields, groups and properties of an XML tree. A table is written in the structure's own
// order, one row a field: label, description, value form and version gate, the bytes and
// bits read following from the label.
namespace orlo::features::identify::nvme::table {

// The size of every Identify reply.
constexpr uint32_t kReplySize = 4096;

// Bytes `offset` to `offset` + `length` - 1 of the structure (or entry) being read.
struct Bytes {
  uint32_t offset;
  uint32_t length;
};

// The bytes between two numbers of a label, in whichever order the label writes them.
constexpr Bytes range(uint32_t from, uint32_t to) {
  return from <= to ? Bytes{from, to - from + 1} : Bytes{to, from - to + 1};
}
constexpr Bytes byte(uint32_t offset) {
  return Bytes{offset, 1};
}

// Bits `high` down to `low` of a little-endian value.
using Bits = core::BitField;
using core::bit;
using core::bits;

// How a value is shown.
struct Form {
  enum Kind : uint8_t {
    kEmpty,
    kDecimal,
    kHex,         // "0x", at least `digits` digits
    kBareHex,     // no prefix, at least `digits` digits
    kLongHex,     // two digits a byte, in stored order or `reversed`; long zero runs read "0x0"
    kHex128,      // "0x", the high then the low 64 bits, 16 digits each
    kText,        // the bytes as cleaned text, or `blank` when nothing is left
    kDecimal128,  // the 16 bytes as one exact unsigned decimal number
    kKelvin,      // kelvins, and the same in degrees Celsius
    kDataUnits,   // a 128-bit count of units of 1000 blocks of 512 bytes, and the bytes
  };
  Kind kind;
  uint8_t digits;
  bool reversed;
  const char* blank = "";
  const char* unit = "";  // follows a decimal number: " hours", "%"
};
constexpr Form empty{Form::kEmpty, 0, false};
constexpr Form decimal{Form::kDecimal, 0, false};
constexpr Form hex(uint8_t digits = 0) {
  return Form{Form::kHex, digits, false};
}
constexpr Form bareHex(uint8_t digits = 0) {
  return Form{Form::kBareHex, digits, false};
}
constexpr Form longHex{Form::kLongHex, 0, false};
constexpr Form longHexReversed{Form::kLongHex, 0, true};
constexpr Form hex128{Form::kHex128, 0, false};
constexpr Form text{Form::kText, 0, false};
constexpr Form textOr(const char* blank) {
  return Form{Form::kText, 0, false, blank};
}
constexpr Form decimalIn(const char* unit) {
  return Form{Form::kDecimal, 0, false, "", unit};
}
constexpr Form decimal128{Form::kDecimal128, 0, false};
constexpr Form decimal128In(const char* unit) {
  return Form{Form::kDecimal128, 0, false, "", unit};
}
constexpr Form kelvin{Form::kKelvin, 0, false};
constexpr Form dataUnits{Form::kDataUnits, 0, false};

// Words that name the values of a field: indexed by the value, with `otherwise` for the
// values past the list. They follow the formatted value, or stand in its place.
struct Words {
  const char* const* texts;
  uint32_t count;
  const char* otherwise;
  bool replacesValue;
};
template <std::size_t N>
constexpr Words appended(const char* const (&texts)[N], const char* otherwise = "") {
  return Words{texts, N, otherwise, false};
}
template <std::size_t N>
constexpr Words replacing(const char* const (&texts)[N], const char* otherwise = "") {
  return Words{texts, N, otherwise, true};
}

struct Row;

// A run of rows, in the order in which they are shown.
struct Table {
  const Row* rows = nullptr;
  std::size_t count = 0;

  constexpr Table() = default;
  template <std::size_t N>
  constexpr Table(const Row (&rows)[N]) : rows(rows), count(N) {}
  // A single row, such as one whose label is made at run time.
  constexpr Table(const Row& row) : rows(&row), count(1) {}

  constexpr const Row* begin() const { return rows; }
  constexpr const Row* end() const;
};

struct Row {
  const char* name;
  const char* description;
  Bytes bytes;  // read; a length of 0 reads the bytes of the enclosing group
  Bits bits;
  Form form;
  Gate gate;
  Table members;  // the properties of a group; empty for a plain field
  const Words* words;
  // The key of the field in the keyed form when the description's own (see keyOf) is not
  // the one that scripts know it by, and whether it is one of a run of entries.
  const char* key = nullptr;
  bool entry = false;
  // The bytes that the row takes up in its structure, those its label names unless the row
  // says otherwise; they need not be the ones it reads (see readsPast).
  Bytes held{0, 0};

  constexpr Row since(NVMeVersions versions) const { return gatedBy(nvme::since(versions)); }
  constexpr Row until(NVMeVersions versions) const { return gatedBy(nvme::until(versions)); }
  constexpr Row named(const Words& names) const {
    Row row = *this;
    row.words = &names;
    return row;
  }
  constexpr Row as(const char* machineKey) const {
    Row row = *this;
    row.key = machineKey;
    return row;
  }
  constexpr Row repeated() const {
    Row row = *this;
    row.entry = true;
    return row;
  }
  // Where a row's label names other bytes or bits than the row's own, the label stays as
  // drives have always been shown and the row names the ones it holds and reads.
  constexpr Row readsBytes(Bytes own) const {
    Row row = *this;
    row.bytes = own;
    row.held = own;
    return row;
  }
  constexpr Row readsBits(Bits own) const {
    Row row = *this;
    row.bits = own;
    return row;
  }
  // A row that holds the bytes its label names but shows `shown`, running on into the bytes
  // of the rows after it.
  constexpr Row readsPast(Bytes shown) const {
    Row row = *this;
    row.bytes = shown;
    return row;
  }

 private:
  constexpr Row gatedBy(Gate more) const {
    Row row = *this;
    row.gate = gate & more;
    return row;
  }
};

constexpr const Row* Table::end() const {
  return rows + count;
}

constexpr Bits kWholeValue{63, 0};

// A row that takes up the bytes it reads.
constexpr Row holdingRead(Row row) {
  row.held = row.bytes;
  return row;
}

// A row whose label does not say where it lies ("Controller ID", or a label made at run
// time) names its bytes and bits itself.
constexpr Row field(const char* name, const char* description, Bytes bytes, Form form) {
  return holdingRead(Row{name, description, bytes, kWholeValue, form, {}, {}, nullptr});
}
constexpr Row field(const char* name, const char* description, Bytes bytes, Bits bits, Form form) {
  return holdingRead(Row{name, description, bytes, bits, form, {}, {}, nullptr});
}
constexpr Row group(const char* name, const char* description, Bytes bytes, Form form,
                    Table members) {
  return holdingRead(Row{name, description, bytes, kWholeValue, form, {}, members, nullptr});
}
// Where a label says a field lies: "Byte 03", "Bytes 02:01" and "Byte 0-1" name bytes,
// "Bit 5", "Bits 6:4" and "Bit 0-6" bits of the enclosing group's bytes, the two numbers in
// either order. Read while compiling; a label of another shape does not compile.
namespace label {
constexpr uint32_t numberAt(const char* text, std::size_t& at) {
  if (text[at] < '0' || text[at] > '9') throw "a label's number is missing";
  uint32_t number = 0;
  for (; text[at] >= '0' && text[at] <= '9'; ++at) number = number * 10 + (text[at] - '0');
  return number;
}
// Where the label's word starts, past any blanks before it.
constexpr std::size_t wordAt(const char* text) {
  std::size_t at = 0;
  while (text[at] == ' ') ++at;
  return at;
}
constexpr bool startsWith(const char* text, const char* prefix) {
  const std::size_t start = wordAt(text);
  for (std::size_t at = 0; prefix[at] != '\0'; ++at) {
    if (text[start + at] != prefix[at]) return false;
  }
  return true;
}
// The two numbers of the label, the higher first; the first twice for a single one.
struct Span {
  uint32_t high;
  uint32_t low;
};
constexpr Span spanOf(const char* text) {
  std::size_t at = wordAt(text);
  while (text[at] != ' ') {
    if (text[at] == '\0') throw "a label's word is followed by a blank";
    ++at;
  }
  ++at;
  const uint32_t first = numberAt(text, at);
  if (text[at] == '\0') return Span{first, first};
  if (text[at] != ':' && text[at] != '-') throw "a label's numbers are parted by ':' or '-'";
  ++at;
  const uint32_t second = numberAt(text, at);
  if (text[at] != '\0') throw "a label ends with its second number";
  return first >= second ? Span{first, second} : Span{second, first};
}
constexpr Bytes bytesOf(const char* text) {
  if (!startsWith(text, "Byte")) return Bytes{0, 0};
  const Span span = spanOf(text);
  return range(span.high, span.low);
}
constexpr Bits bitsOf(const char* text) {
  if (!startsWith(text, "Bit")) return kWholeValue;
  const Span span = spanOf(text);
  return bits(static_cast<uint8_t>(span.high), static_cast<uint8_t>(span.low));
}
}  // namespace label

// A field or group that lies where its label says.
constexpr Row field(const char* name, const char* description, Form form) {
  return holdingRead(
      Row{name, description, label::bytesOf(name), label::bitsOf(name), form, {}, {}, nullptr});
}
constexpr Row group(const char* name, const char* description, Form form, Table members) {
  return holdingRead(
      Row{name, description, label::bytesOf(name), kWholeValue, form, {}, members, nullptr});
}
// Reserved bytes, which show nothing.
constexpr Row reserved(const char* name) {
  return holdingRead(
      Row{name, "Reserved", label::bytesOf(name), kWholeValue, empty, {}, {}, nullptr});
}

// Whether the byte rows of `rows`, in their order, follow one another without a gap or an
// overlap from byte 0 to byte `size` - 1.
template <std::size_t N>
constexpr bool tiles(const Row (&rows)[N], uint32_t size) {
  uint32_t next = 0;
  for (const Row& row : rows) {
    if (row.held.offset != next) return false;
    next += row.held.length;
  }
  return next == size;
}

// A table whose rows all share one gate on top of their own.
struct Section {
  Gate gate;
  Table rows;
};

// Where the rows of `sections` that drives announcing `versions` are shown end, when each
// starts where the one before it ended, from byte 0 on; kUntiled when one leaves a gap or
// overlaps.
constexpr uint32_t kUntiled = UINT32_MAX;
template <std::size_t N>
constexpr uint32_t tiledUpTo(const Section (&sections)[N], NVMeVersions versions) {
  uint32_t next = 0;
  for (const Section& section : sections) {
    for (const Row& row : section.rows) {
      if (!(section.gate & row.gate).admits(versions)) continue;
      if (row.held.offset != next) return kUntiled;
      next += row.held.length;
    }
  }
  return next;
}
constexpr uint32_t tiledUpTo(Table rows, NVMeVersions versions) {
  const Section whole[] = {Section{Gate{}, rows}};
  return tiledUpTo(whole, versions);
}

// What drives announce, oldest first: no version past 1.0, then each newer one on top.
constexpr NVMeVersions kNVMe1_0 = 0;
constexpr NVMeVersions kAnnounced[] = {
    kNVMe1_0,
    kNVMe1_1,
    kNVMe1_1 | kNVMe1_2,
    kNVMe1_1 | kNVMe1_2 | kNVMe1_3,
    kNVMe1_1 | kNVMe1_2 | kNVMe1_3 | kNVMe1_4,
    kNVMe1_1 | kNVMe1_2 | kNVMe1_3 | kNVMe1_4 | kNVMe2_0,
};

// Whether the rows shown for each version in kAnnounced cover bytes 0 to `size` - 1.
constexpr bool tilesEachVersion(Table rows, uint32_t size) {
  for (const NVMeVersions versions : kAnnounced) {
    if (tiledUpTo(rows, versions) != size) return false;
  }
  return true;
}

// What a table reads: the payload, where the table's offsets start, and the versions that
// the device announces.
struct Source {
  const core::Payload& payload;
  uint32_t base;
  NVMeVersions versions;

  Source at(uint32_t offset) const { return Source{payload, base + offset, versions}; }
};

// Appends the admitted rows of `rows` to `parent` as child objects: a field as an object
// with name, description and value, a group likewise with its members as properties. Each
// element is keyed: a number form gives its number (a group's whole bytes, a field's bits,
// kelvins for a temperature), a 128-bit form its exact decimal digits, text its text and
// other hex forms the text shown; a group without a value is an object.
void addFields(core::xml::XmlObject& parent, Table rows, const Source& source, Gate gate = Gate{});
template <std::size_t N>
void addFields(core::xml::XmlObject& parent, const Section (&sections)[N], const Source& source) {
  for (const Section& section : sections) {
    addFields(parent, section.rows, source, section.gate);
  }
}

// Appends the admitted rows of `rows` to `parent` as properties.
void addProperties(core::xml::XmlObject& parent, Table rows, const Source& source);

// What a plain field row reads, as a number (its bits, at most 64) and as shown; a member
// row of `group` reads within the group's bytes.
uint64_t numberOf(const Row& row, const Source& source);
uint64_t numberOf(const Row& member, const Row& group, const Source& source);
std::string valueOf(const Row& row, const Source& source);

// Sets the attribute `name` of a root, and copies it to `key`.
void nameRoot(core::xml::XmlObject& root, const std::string& name);

}  // namespace orlo::features::identify::nvme::table
