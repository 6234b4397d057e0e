#include "orlo/core/Strings.h"

#include <algorithm>
#include <boost/algorithm/string/classification.hpp>
#include <boost/algorithm/string/predicate.hpp>
#include <boost/algorithm/string/split.hpp>
#include <cctype>
#include <cstring>
#include <iterator>
#include <sstream>

#include "orlo/core/Logging.h"
#include "orlo/core/Payload.h"

namespace orlo::core::strings {

namespace {

bool passesAll(const std::string& text, size_t start, int (*test)(int)) {
  return std::all_of(text.begin() + start, text.end(),
                     [test](char c) { return test(static_cast<unsigned char>(c)) != 0; });
}

std::string lowered(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

// Parameters that reach us as C texts stop at their first zero byte.
std::string untilZero(const std::string& text) {
  return text.substr(0, text.find('\0'));
}

const uint8_t* asBytes(const void* bytes) {
  return static_cast<const uint8_t*>(bytes);
}

const char kHexDigits[] = "0123456789ABCDEF";

}  // namespace

bool isInteger(std::string text) {
  return !text.empty() && passesAll(text, 0, std::isdigit);
}

bool isHex(std::string text) {
  size_t start = 0;
  // The character right behind the prefix is not looked at; callers rely on no more.
  if (text.size() >= 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) start = 3;
  if (start >= text.size()) return true;
  return passesAll(text, start, std::isxdigit);
}

bool isBoolean(std::string text) {
  return text == "0" || text == "1" || iequals(text, "true") || iequals(text, "false");
}

bool isNonPrintable(uint8_t byte) {
  return byte < 32 || byte > 126;
}

int64_t toInteger(std::string text) {
  if (!isInteger(text) && isHex(text)) return static_cast<int64_t>(hexToInt(text));
  // Extraction leaves 0 for a text it refuses and the largest value on overflow.
  int64_t value = 0;
  std::istringstream stream(text);
  stream >> value;
  return value;
}

uint64_t hexToInt(std::string text) {
  if (isHex(text)) {
    uint64_t value = 0;
    std::istringstream stream(text);
    stream >> std::hex >> value;
    return value;
  }
  ORLO_LOG(error, "ERROR!!! String is not a valid hexadecimal number");
  return ~uint64_t{0};
}

bool contains(std::string text, std::string part, bool ignoreCase) {
  part = untilZero(part);
  if (ignoreCase) {
    text = lowered(text);
    part = lowered(part);
  }
  return text.find(part) != std::string::npos;
}

bool endsWith(std::string text, std::string suffix, bool ignoreCase) {
  if (suffix.size() > text.size()) return false;
  if (ignoreCase) {
    text = lowered(text);
    suffix = lowered(suffix);
  }
  return text.compare(text.size() - suffix.size(), suffix.size(), suffix) == 0;
}

void replaceAll(std::string& text, std::string from, const std::string& to) {
  from = untilZero(from);
  if (from.empty()) return;
  for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
    text.replace(at, from.size(), to);
    at += to.size();
  }
}

std::string toUpper(std::string text) {
  for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

std::string sanitize(std::string text) {
  text.erase(std::remove_if(text.begin(), text.end(),
                            [](char c) { return isNonPrintable(static_cast<uint8_t>(c)); }),
             text.end());
  const auto first = text.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  text.erase(text.find_last_not_of(' ') + 1);
  text.erase(0, first);
  return text;
}

std::vector<std::string> split(std::string text, std::string delimiters) {
  std::vector<std::string> pieces;
  boost::algorithm::split(pieces, text, boost::algorithm::is_any_of(untilZero(delimiters)),
                          boost::algorithm::token_compress_off);
  return pieces;
}

bool iequals(const std::string& a, const std::string& b) {
  return boost::algorithm::iequals(a, b);
}

std::string boolToString(bool value) {
  return value ? "True" : "False";
}

std::string toString(uint64_t number) {
  return std::to_string(number);
}
std::string toString(uint32_t number) {
  return toString(static_cast<uint64_t>(number));
}
std::string toString(uint16_t number) {
  return toString(static_cast<uint64_t>(number));
}
std::string toString(uint8_t number) {
  return toString(static_cast<uint64_t>(number));
}
std::string toString(int64_t number) {
  return std::to_string(number);
}
std::string toString(int32_t number) {
  return toString(static_cast<int64_t>(number));
}
std::string toString(int16_t number) {
  return toString(static_cast<int64_t>(number));
}
std::string toString(int8_t number) {
  return toString(static_cast<int64_t>(number));
}

std::string toHex(uint64_t number, uint32_t width) {
  char digits[16];
  size_t count = 0;
  do {
    digits[count++] = kHexDigits[number & 0x0F];
    number >>= 4;
  } while (number != 0);
  std::string text(width > count ? width - count : 0, '0');
  text.append(std::make_reverse_iterator(digits + count), std::make_reverse_iterator(digits));
  return text;
}
std::string toHex(uint32_t number, uint32_t width) {
  return toHex(static_cast<uint64_t>(number), width);
}
std::string toHex(uint16_t number, uint32_t width) {
  return toHex(static_cast<uint64_t>(number), width);
}
std::string toHex(uint8_t number, uint32_t width) {
  return toHex(static_cast<uint64_t>(number), width);
}
std::string toHex(int32_t number, uint32_t width) {
  return toHex(static_cast<uint64_t>(static_cast<int64_t>(number)), width);
}

std::string toHexString(const void* bytes, size_t size) {
  std::string text;
  text.reserve(size * 2);
  for (size_t i = 0; i < size; ++i) {
    const uint8_t byte = asBytes(bytes)[i];
    text += kHexDigits[byte >> 4];
    text += kHexDigits[byte & 0x0F];
  }
  return text;
}

std::string toHexString(const Payload& payload) {
  return toHexString(payload.data(), payload.size());
}

std::string toHexNumber(const void* bytes, size_t size, bool reverse) {
  std::vector<uint8_t> copy(asBytes(bytes), asBytes(bytes) + size);
  if (size > 8 && std::all_of(copy.begin(), copy.end(), [](uint8_t b) { return b == 0; })) {
    return "0x0";
  }
  if (reverse) std::reverse(copy.begin(), copy.end());
  return "0x" + toHexString(copy.data(), copy.size());
}

std::string fromBytes(const void* bytes, size_t size) {
  if (bytes == nullptr) return {};
  const char* text = static_cast<const char*>(bytes);
  return std::string(text, strnlen(text, size));
}

std::string hexDump(const void* bytes, size_t size, uint32_t bytesPerLine) {
  std::string dump;
  if (bytesPerLine == 0) return dump;
  for (size_t offset = 0; offset < size; offset += bytesPerLine) {
    std::string hex = toHex(static_cast<uint64_t>(offset), 4) + ": ";
    std::string characters;
    const size_t lineEnd = std::min<size_t>(offset + bytesPerLine, size);
    for (size_t i = offset; i < lineEnd; ++i) {
      if (i > offset && (i - offset) % 8 == 0) hex += ' ';
      const uint8_t byte = asBytes(bytes)[i];
      hex += toHex(byte, 2) + ' ';
      characters += (byte >= 33 && byte <= 126) ? static_cast<char>(byte) : '.';
    }
    if (!dump.empty()) dump += '\n';
    dump += hex + ' ' + characters;
  }
  return dump;
}

}  // namespace orlo::core::strings
