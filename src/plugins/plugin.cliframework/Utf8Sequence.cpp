#include "plugins/plugin.cliframework/Utf8Sequence.h"

#include <cstdint>

namespace plugin::cli {

std::size_t utf8SequenceLength(const std::string& text, std::size_t at) {
  const auto byteAt = [&](std::size_t i) { return static_cast<uint8_t>(text[i]); };
  const uint8_t lead = byteAt(at);
  std::size_t length = 0;
  uint8_t low = 0x80, high = 0xBF;  // the range of the second byte
  if (lead < 0x80) {
    return 1;
  } else if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    if (lead == 0xE0) low = 0xA0;
    if (lead == 0xED) high = 0x9F;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    if (lead == 0xF0) low = 0x90;
    if (lead == 0xF4) high = 0x8F;
  } else {
    return 0;
  }
  if (at + length > text.size()) return 0;
  if (byteAt(at + 1) < low || byteAt(at + 1) > high) return 0;
  for (std::size_t i = 2; i < length; ++i) {
    if ((byteAt(at + i) & 0xC0) != 0x80) return 0;
  }
  return length;
}

}  // namespace plugin::cli
