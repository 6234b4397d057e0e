#include "orlo/features/identify/ATAIdentifyRow.h"

#include <string>
#include <utility>

namespace orlo::features::identify::ata {

namespace {

// Splits "14:8" or "7-8" at the separator; a single number is both ends.
std::pair<unsigned, unsigned> parseRange(const std::string& text, char separator) {
  const auto at = text.find(separator);
  const unsigned left = static_cast<unsigned>(std::stoul(text.substr(0, at)));
  if (at == std::string::npos) return {left, left};
  return {left, static_cast<unsigned>(std::stoul(text.substr(at + 1)))};
}

unsigned digitsFor(core::BitField field) {
  return (field.width() + 3) / 4;
}

}  // namespace

BitItem::BitItem(std::string bitsLabel, std::string text)
    : bits(std::move(bitsLabel)), description(std::move(text)) {
  const auto [high, low] = parseRange(bits, ':');
  field = core::bits(static_cast<uint8_t>(high), static_cast<uint8_t>(low));
  digits = digitsFor(field);
}

BitItem readsBits(BitItem item, unsigned high, unsigned low) {
  item.field = core::bits(static_cast<uint8_t>(high), static_cast<uint8_t>(low));
  item.digits = digitsFor(item.field);
  return item;
}

BitItem printedWith(BitItem item, unsigned digits) {
  item.digits = digits;
  return item;
}

WordRow::WordRow(std::string wordsLabel, std::string text, WordValue wordValue,
                 std::vector<BitItem> bitItems)
    : words(std::move(wordsLabel)),
      description(std::move(text)),
      value(wordValue),
      bits(std::move(bitItems)) {
  std::tie(first, last) = parseRange(words, '-');
}

}  // namespace orlo::features::identify::ata
