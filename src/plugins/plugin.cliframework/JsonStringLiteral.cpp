#include "plugins/plugin.cliframework/JsonStringLiteral.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "plugins/plugin.cliframework/Utf8Sequence.h"

namespace plugin::cli {

namespace {

// The characters that JSON escapes with a backslash and a letter, and those letters.
const std::string shortFormCharacters = "\"\\\b\f\n\r\t";
const std::string shortFormLetters = "\"\\bfnrt";

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
    const std::size_t length = utf8SequenceLength(text, at);
    if (length != 1) {
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
