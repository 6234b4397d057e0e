#pragma once

#include <cstddef>
#include <string>

namespace plugin::cli {

// The length of the valid UTF-8 character that starts at `at` in `text`: 1 for ASCII,
// up to 4, or 0 when the byte there starts none. Device texts are bytes; what is not
// UTF-8 in them is shown byte by byte. Overlong forms, surrogates and code points
// above U+10FFFF are not valid.
std::size_t utf8SequenceLength(const std::string& text, std::size_t at);

}  // namespace plugin::cli
