#pragma once

#include <string>

namespace plugin::cli {

// `text` as a JSON string literal, quotation marks included, that any JSON reader
// takes: control characters, the quotation mark and the backslash are escaped,
// valid UTF-8 passes as it is, and a byte that is not part of valid UTF-8 (device
// texts are bytes, not text) is written as the character of that number, \u00XX.
std::string jsonStringLiteral(const std::string& text);

}  // namespace plugin::cli
