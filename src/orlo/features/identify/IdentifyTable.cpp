#include "orlo/features/identify/IdentifyTable.h"

#include <algorithm>
#include <memory>
#include <string>

#include "orlo/core/Payload.h"
#include "orlo/core/xml/XmlObject.h"
#include "orlo/core/xml/XmlProperty.h"
#include "orlo/features/identify/IdentifyValueForms.h"

namespace orlo::features::identify::nvme::table {

namespace {

// A member row of length 0 reads the bytes of its group.
Bytes bytesOf(const Row& row, const Bytes& enclosing) {
  return row.bytes.length == 0 ? enclosing : row.bytes;
}

// The number in the row's bits of its bytes.
uint64_t numberOf(const Row& row, const Source& source, const Bytes& bytes) {
  const uint32_t high = std::min<uint32_t>(row.bits.high, bytes.length * 8 - 1);
  return valueForms::bits(source.payload, source.base + bytes.offset,
                          core::bits(static_cast<uint8_t>(high), row.bits.low));
}

std::string formatted(const Row& row, const Source& source, const Bytes& bytes) {
  const uint32_t offset = source.base + bytes.offset;
  switch (row.form.kind) {
    case Form::kEmpty:
      return "";
    case Form::kDecimal:
      return valueForms::decimal(numberOf(row, source, bytes)) + row.form.unit;
    case Form::kDecimal128:
      return valueForms::decimal128(source.payload, offset) + row.form.unit;
    case Form::kKelvin:
      return valueForms::kelvin(numberOf(row, source, bytes));
    case Form::kDataUnits:
      return valueForms::dataUnits(source.payload, offset);
    case Form::kHex:
      return valueForms::hex(numberOf(row, source, bytes), row.form.digits);
    case Form::kBareHex:
      return valueForms::bareHex(numberOf(row, source, bytes), row.form.digits);
    case Form::kLongHex:
      return valueForms::longHex(source.payload, offset, bytes.length, row.form.reversed);
    case Form::kHex128:
      return valueForms::hex128(source.payload, offset);
    case Form::kText: {
      const std::string text = valueForms::text(source.payload, offset, bytes.length);
      return text.empty() ? row.form.blank : text;
    }
  }
  return "";
}

std::string valueOf(const Row& row, const Source& source, const Bytes& enclosing) {
  const Bytes bytes = bytesOf(row, enclosing);
  if (row.words == nullptr) {
    return formatted(row, source, bytes);
  }
  const uint64_t number = numberOf(row, source, bytes);
  const char* word = number < row.words->count ? row.words->texts[number] : row.words->otherwise;
  return row.words->replacesValue ? word : formatted(row, source, bytes) + word;
}

core::xml::Keyed keyedOf(const Row& row, const Source& source, const Bytes& enclosing) {
  using core::xml::Keyed;
  const Bytes bytes = bytesOf(row, enclosing);
  const uint32_t offset = source.base + bytes.offset;
  // A row without a description is known by its name.
  std::string key = row.key != nullptr         ? row.key
                    : *row.description != '\0' ? core::xml::keyOf(row.description)
                                               : core::xml::keyOf(row.name);
  Keyed keyed;
  switch (row.form.kind) {
    case Form::kEmpty:
      keyed = Keyed::object(std::move(key));
      break;
    case Form::kDecimal:
    case Form::kHex:
    case Form::kBareHex:
    case Form::kKelvin:
      keyed = Keyed::number(std::move(key), numberOf(row, source, bytes));
      break;
    case Form::kDecimal128:
    case Form::kDataUnits:
    case Form::kHex128:
      keyed = Keyed::text(std::move(key), valueForms::decimal128(source.payload, offset));
      break;
    case Form::kLongHex:
      keyed = Keyed::text(std::move(key), formatted(row, source, bytes));
      break;
    case Form::kText:
      keyed = Keyed::text(std::move(key), valueForms::text(source.payload, offset, bytes.length));
      break;
  }
  keyed.entry = row.entry;
  return keyed;
}

void addAdmitted(core::xml::XmlObject& parent, Table rows, const Source& source, Gate gate,
                 const Bytes& enclosing, bool asProperties) {
  for (const Row& row : rows) {
    if (!(gate & row.gate).admits(source.versions)) {
      continue;
    }
    const std::string value = valueOf(row, source, enclosing);
    if (asProperties) {
      parent.addProperty(row.name, row.description, value).keyed() =
          keyedOf(row, source, enclosing);
      continue;
    }
    auto child = std::make_unique<core::xml::XmlObject>(row.name, row.description, value);
    child->keyed() = keyedOf(row, source, enclosing);
    addAdmitted(*child, row.members, source.at(row.bytes.offset), gate & row.gate,
                Bytes{0, row.bytes.length}, true);
    // The constructor has named the child already.
    parent.objects().push_back(std::move(child));
  }
}

}  // namespace

void addFields(core::xml::XmlObject& parent, Table rows, const Source& source, Gate gate) {
  addAdmitted(parent, rows, source, gate, Bytes{0, 0}, false);
}

void addProperties(core::xml::XmlObject& parent, Table rows, const Source& source) {
  addAdmitted(parent, rows, source, Gate{}, Bytes{0, 0}, true);
}

uint64_t numberOf(const Row& row, const Source& source) {
  return numberOf(row, source, row.bytes);
}

uint64_t numberOf(const Row& member, const Row& group, const Source& source) {
  return numberOf(member, source.at(group.bytes.offset),
                  bytesOf(member, Bytes{0, group.bytes.length}));
}

std::string valueOf(const Row& row, const Source& source) {
  return valueOf(row, source, row.bytes);
}

void nameRoot(core::xml::XmlObject& root, const std::string& name) {
  root.attribute("name") = name;
  root.attribute("key") = name;
}

}  // namespace orlo::features::identify::nvme::table
