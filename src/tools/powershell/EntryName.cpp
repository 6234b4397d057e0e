#include "EntryName.h"

#include <locale.h>
#include <wctype.h>

#include <cctype>

namespace orlo::tools::powershell {

namespace {

// Reads the UTF-8 sequence that starts at text[at]; returns its length, or 0
// when it is malformed (overlong, a surrogate, beyond U+10FFFF, cut short).
std::size_t decodeUtf8(const std::string& text, std::size_t at, char32_t& codePoint) {
  const auto lead = static_cast<unsigned char>(text[at]);
  std::size_t length = 0;
  if (lead < 0x80) {
    codePoint = lead;
    return 1;
  }
  if ((lead & 0xE0) == 0xC0) {
    length = 2;
    codePoint = lead & 0x1F;
  } else if ((lead & 0xF0) == 0xE0) {
    length = 3;
    codePoint = lead & 0x0F;
  } else if ((lead & 0xF8) == 0xF0) {
    length = 4;
    codePoint = lead & 0x07;
  } else {
    return 0;
  }
  if (at + length > text.size()) return 0;
  for (std::size_t k = 1; k < length; ++k) {
    const auto next = static_cast<unsigned char>(text[at + k]);
    if ((next & 0xC0) != 0x80) return 0;
    codePoint = (codePoint << 6) | (next & 0x3F);
  }
  static const char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (codePoint < kSmallest[length] || codePoint > 0x10FFFF ||
      (codePoint >= 0xD800 && codePoint <= 0xDFFF)) {
    return 0;
  }
  return length;
}

}  // namespace

bool isValidUtf8(const std::string& text) {
  char32_t codePoint = 0;
  for (std::size_t at = 0, length = 0; at < text.size(); at += length) {
    length = decodeUtf8(text, at, codePoint);
    if (length == 0) return false;
  }
  return true;
}

bool isSafeEntryName(const std::string& name) {
  if (name.empty() || name[0] == '/' || name[0] == '\\') return false;
  if (name.size() >= 2 && name[1] == ':' && std::isalpha(static_cast<unsigned char>(name[0]))) {
    return false;
  }
  std::string::size_type start = 0;
  for (;;) {
    const auto end = name.find_first_of("/\\", start);
    if (name.compare(start, end - start, "..") == 0) return false;
    if (end == std::string::npos) return true;
    start = end + 1;
  }
}

std::u32string foldCase(const std::string& name) {
  // Lower-casing beyond ASCII needs a Unicode character table whatever the
  // user's locale is. A system without the C.UTF-8 locale files (a minimal root,
  // an initramfs) has only the built-in "C" locale, which still folds ASCII;
  // towlower_l must be given a real locale object, never LC_GLOBAL_LOCALE.
  static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", static_cast<locale_t>(0));
  static const locale_t table = unicode != static_cast<locale_t>(0)
                                    ? unicode
                                    : newlocale(LC_CTYPE_MASK, "C", static_cast<locale_t>(0));
  std::u32string folded;
  char32_t codePoint = 0;
  for (std::size_t at = 0, length = 0; at < name.size(); at += length) {
    length = decodeUtf8(name, at, codePoint);
    if (length == 0) {
      codePoint = static_cast<unsigned char>(name[at]);
      length = 1;
    }
    folded.push_back(static_cast<char32_t>(towlower_l(static_cast<wint_t>(codePoint), table)));
  }
  return folded;
}

}  // namespace orlo::tools::powershell
