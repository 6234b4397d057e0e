#include "orlo/features/identify/ATAIdentifyDecoder.h"

#include <cstdint>
#include <set>
#include <string>

#include "orlo/commands/ata/Layout.h"
#include "orlo/core/LittleEndian.h"
#include "orlo/core/Strings.h"
#include "orlo/core/xml/XmlObject.h"
#include "orlo/core/xml/XmlProperty.h"
#include "orlo/features/identify/ATAIdentifyTable.h"

namespace orlo::features::identify::ata {

namespace {

using orlo::core::AttributeCollection;
using orlo::core::Payload;
using orlo::core::xml::Keyed;
using orlo::core::xml::keyOf;
using orlo::core::xml::XmlObject;
namespace strings = orlo::core::strings;

constexpr uint32_t kIdentifyDataSize = commands::ata::layout::kSectorSize;

uint16_t wordAt(const Payload& payload, unsigned index) {
  return core::le::read16(payload.data() + 2 * index);
}

// The words of the row as one little-endian number.
uint64_t numberOf(const Payload& payload, const WordRow& row) {
  return core::le::read(payload.data() + 2 * row.first, 2 * (row.last - row.first + 1));
}

std::string wordsOf(const Payload& payload, const WordRow& row, bool highestFirst) {
  std::string text;
  for (unsigned step = 0; step <= row.last - row.first; ++step) {
    const unsigned index = highestFirst ? row.last - step : row.first + step;
    text += strings::toHex(wordAt(payload, index), 4);
  }
  return text;
}

std::string valueOf(const Payload& payload, const WordRow& row,
                    const AttributeCollection& deviceAttributes) {
  const unsigned wordCount = row.last - row.first + 1;
  switch (row.value.form) {
    case ValueForm::Word:
      return strings::toHex(wordAt(payload, row.first), 4);
    case ValueForm::WordsAscending:
      return wordsOf(payload, row, false);
    case ValueForm::WordsDescending:
      return wordsOf(payload, row, true);
    case ValueForm::U32:
    case ValueForm::U64:
      return strings::toHex(numberOf(payload, row), 4 * wordCount);
    case ValueForm::Bytes:
      return strings::toHexString(payload.data() + 2 * row.first, row.value.byteCount);
    case ValueForm::Device:
      return orlo::core::readString(deviceAttributes, row.value.deviceAttribute());
  }
  return {};
}

// The key of a row: its description's, followed by its words where other rows share the
// description ("capabilities_49", "capabilities_50").
std::string rowKey(const WordRow& row) {
  static const std::set<std::string> shared = [] {
    std::set<std::string> seen;
    std::set<std::string> twice;
    for (const WordRow& other : identifyDeviceWords()) {
      if (!seen.insert(other.description).second) twice.insert(other.description);
    }
    return twice;
  }();
  const std::string key = keyOf(row.description);
  return shared.count(row.description) != 0 && !key.empty() ? keyOf(key + " " + row.words) : key;
}

// The row in the keyed form: a number for a word or a number of words, else its text.
Keyed keyedOf(const Payload& payload, const WordRow& row, const std::string& shown) {
  switch (row.value.form) {
    case ValueForm::Word:
      return Keyed::number(rowKey(row), wordAt(payload, row.first));
    case ValueForm::U32:
    case ValueForm::U64:
      return Keyed::number(rowKey(row), numberOf(payload, row));
    case ValueForm::WordsAscending:
    case ValueForm::WordsDescending:
    case ValueForm::Bytes:
    case ValueForm::Device:
      break;
  }
  return Keyed::text(rowKey(row), shown);
}

unsigned fieldOf(uint16_t word, const BitItem& item) {
  return static_cast<unsigned>(core::extract(word, item.field));
}

}  // namespace

std::unique_ptr<XmlObject> decodeIdentifyDevice(const Payload& payload,
                                                const AttributeCollection& deviceAttributes) {
  auto root = std::make_unique<XmlObject>();
  if (payload.size() < kIdentifyDataSize) return root;
  root->attribute("name") = "ATA Identify Device";
  root->attribute("key") = root->getAttribute("name");
  for (const WordRow& row : identifyDeviceWords()) {
    const std::string value = valueOf(payload, row, deviceAttributes);
    auto child = std::make_unique<XmlObject>("Word " + row.words, row.description, value);
    child->keyed() = keyedOf(payload, row, value);
    const uint16_t word = wordAt(payload, row.first);
    for (const BitItem& item : row.bits) {
      const unsigned field = fieldOf(word, item);
      child->addProperty("Bit " + item.bits, item.description, strings::toHex(field, item.digits))
          .keyed() = Keyed::number(keyOf(item.description), field);
    }
    root->objects().push_back(std::move(child));
  }
  return root;
}

}  // namespace orlo::features::identify::ata
