#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace orlo::core {
class Payload;
}

// Text helpers: how a user's text is read, and how numbers and bytes are printed.
namespace orlo::core::strings {

// Recognisers.
bool isInteger(std::string text);  // digits only, not empty, no sign
bool isHex(std::string text);      // after a "0x" prefix, checking starts at index 3
bool isBoolean(std::string text);  // "0", "1", "true" or "false" in any case
bool isNonPrintable(uint8_t byte);

// Number parsers.
int64_t toInteger(std::string text);  // decimal if all digits, else hexadecimal; saturates
uint64_t hexToInt(std::string text);  // all ones, and an error record, if not hexadecimal

// Text operations.
bool contains(std::string text, std::string part, bool ignoreCase);
bool endsWith(std::string text, std::string suffix, bool ignoreCase);
void replaceAll(std::string& text, std::string from, const std::string& to);
std::string toUpper(std::string text);
std::string sanitize(std::string text);  // drops non-printable bytes, strips blanks
std::vector<std::string> split(std::string text, std::string delimiters);  // keeps empty pieces
bool iequals(const std::string& a, const std::string& b);

// Printing.
std::string boolToString(bool value);  // "True" or "False"
std::string toString(uint64_t number);
std::string toString(uint32_t number);
std::string toString(uint16_t number);
std::string toString(uint8_t number);
std::string toString(int64_t number);
std::string toString(int32_t number);
std::string toString(int16_t number);
std::string toString(int8_t number);

// Upper-case digits, no prefix, at least `width` of them. All numbers print as 64-bit
// values: the signed overload extends the sign, so -1 gives sixteen "F".
std::string toHex(uint64_t number, uint32_t width);
std::string toHex(uint32_t number, uint32_t width);
std::string toHex(uint16_t number, uint32_t width);
std::string toHex(uint8_t number, uint32_t width);
std::string toHex(int32_t number, uint32_t width);

// Two upper-case digits a byte, in buffer order.
std::string toHexString(const void* bytes, size_t size);
std::string toHexString(const Payload& payload);

// "0x" and the digits of the bytes, most significant first when `reverse` is set for a
// little-endian field. More than 8 zero bytes print as "0x0".
std::string toHexNumber(const void* bytes, size_t size, bool reverse);

// The bytes up to the first zero byte, or all of them; empty for a null pointer.
std::string fromBytes(const void* bytes, size_t size);

// Lines of "OOOO: XX XX ...  chars"; the last line is not padded.
std::string hexDump(const void* bytes, size_t size, uint32_t bytesPerLine);

}  // namespace orlo::core::strings
