#include "plugins/plugin.cliframework/JsonStringLiteral.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>

namespace plugin::cli {

namespace {

// The characters that JSON escapes with a backslash and a letter, and those letters.
const std::string shortFormCharacters = "\"\\\b\f\n\r\t";
const std::string shortFormLetters = "\"\\bfnrt";

bool isContinuation(uint8_t byte) {
  return (byte & 0xC0) == 0x80;
}

// The length of the valid UTF-8 sequence at `at`, or 0 if the byte there starts none.
// Overlong forms, surrogates and code points above U+10FFFF are not valid.
std::size_t sequenceLength(const std::string& text, std::size_t at) {
  const auto byteAt = [&](std::size_t i) { return static_cast<uint8_t>(text[i]); };
  const uint8_t lead = byteAt(at);
  std::size_t length = 0;
  uint8_t low = 0x80, high = 0xBF;  // the range of the second byte
  if (lead >= 0xC2 && lead <= 0xDF) {
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
    if (!isContinuation(byteAt(at + i))) return 0;
  }
  return length;
}

std::string unicodeEscape(uint8_t byte) {
  char code[7];
  std::snprintf(code, sizeof code, "\\u%04x", byte);
  return code;
}

}  // namespace

std::string jsonStringLiteral(const std::string& text) {
  std::string literal = "\"";
  for (std::size_t at = 0; at < text.size();) {
    const auto byte = static_cast<uint8_t>(text[at]);
    if (byte >= 0x80) {
      const std::size_t length = sequenceLength(text, at);
      literal += length == 0 ? unicodeEscape(byte) : text.substr(at, length);
      at += length == 0 ? 1 : length;
      continue;
    }
    const auto shortForm = shortFormCharacters.find(text[at]);
    if (shortForm != std::string::npos) {
      literal += '\\';
      literal += shortFormLetters[shortForm];
    } else {
      literal += byte < 0x20 || byte == 0x7F ? unicodeEscape(byte) : std::string(1, text[at]);
    }
    ++at;
  }
  return literal + "\"";
}

}  // namespace plugin::cli
