#include "orlo/core/xml/XmlElement.h"

#include <algorithm>
#include <cctype>
#include <cstring>

namespace orlo::core::xml {

namespace {

// Where `key` stands in `attributes`, or would be inserted.
template <typename Attributes>
auto position(Attributes& attributes, std::string_view key) {
  return std::lower_bound(attributes.begin(), attributes.end(), key,
                          [](const auto& entry, std::string_view k) { return entry.first < k; });
}

// What a character becomes after the five replacements ("<", ">", "&", the double quote,
// the apostrophe, in that order), or null for a character that stays. One pass gives what
// the five in a row give: each replacement goes on behind what it inserted, and only the
// "&" step finds the ampersands of the two before it.
constexpr const char* replacementOf(unsigned char c) {
  switch (c) {
    case '<':
      return "&amp;lt;";
    case '>':
      return "&amp;gt;";
    case '&':
      return "&amp;";
    case '"':
      return "&quot;";
    case '\'':
      return "&apos;";
    default:
      return nullptr;
  }
}

// For each character, how many characters its replacement adds.
struct GrowthTable {
  uint8_t growth[256] = {};
  constexpr GrowthTable() {
    for (unsigned c = 0; c < 256; ++c) {
      const char* replacement = replacementOf(static_cast<unsigned char>(c));
      if (replacement == nullptr) continue;
      uint8_t length = 0;
      while (replacement[length] != '\0') ++length;
      growth[c] = length - 1;
    }
  }
};
constexpr GrowthTable kGrowth;

size_t escapedSize(const std::string& value) {
  size_t size = value.size();
  for (char c : value) size += kGrowth.growth[static_cast<unsigned char>(c)];
  return size;
}

char* writeText(char* at, std::string_view text) {
  std::memcpy(at, text.data(), text.size());
  return at + text.size();
}

// Writes the escaped value at `at`, which has room for its escapedSize characters.
char* writeEscaped(char* at, std::string_view value) {
  size_t plain = 0;
  for (size_t i = 0; i < value.size(); ++i) {
    const auto byte = static_cast<unsigned char>(value[i]);
    if (kGrowth.growth[byte] == 0) continue;
    at = writeText(at, value.substr(plain, i - plain));
    at = writeText(at, replacementOf(byte));
    plain = i + 1;
  }
  return writeText(at, value.substr(plain));
}

}  // namespace

Keyed Keyed::number(std::string key, uint64_t number) {
  return Keyed{std::move(key), Kind::kNumber, std::to_string(number)};
}

Keyed Keyed::text(std::string key, std::string text) {
  return Keyed{std::move(key), Kind::kText, std::move(text)};
}

Keyed Keyed::object(std::string key) {
  return Keyed{std::move(key), Kind::kObject, ""};
}

std::string keyOf(std::string_view label) {
  if (label.substr(0, 8) == "Reserved" || label == "Retired" || label == "Obsolete") return "";
  const auto alnum = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; };
  const auto acronymic = [](char c) {
    return std::isupper(static_cast<unsigned char>(c)) != 0 ||
           std::isdigit(static_cast<unsigned char>(c)) != 0;
  };
  const std::size_t open = label.rfind('(');
  if (!label.empty() && label.back() == ')' && open != std::string_view::npos) {
    const std::string_view inner = label.substr(open + 1, label.size() - open - 2);
    if (!inner.empty() && std::all_of(inner.begin(), inner.end(), acronymic)) label = inner;
  }
  std::string key;
  for (const char c : label) {
    if (alnum(c)) {
      if (!key.empty() && key.back() == ' ') key.back() = '_';
      key += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    } else if (!key.empty() && key.back() != ' ') {
      key += ' ';
    }
  }
  if (!key.empty() && key.back() == ' ') key.pop_back();
  return key;
}

Keyed Keyed::entryObject(std::string key) {
  return Keyed{std::move(key), Kind::kObject, "", true};
}

XmlElement::XmlElement(std::string name) : name_(std::move(name)) {}

XmlElement::~XmlElement() {
  for (auto& entry : attributes_) explicit_bzero(entry.second.data(), entry.second.size());
  explicit_bzero(keyed_.value.data(), keyed_.value.size());
}

XmlElementList XmlElement::find(std::string elementName, std::string attributeKey,
                                std::string attributeValue, uint8_t /*depth*/) const {
  XmlElementList found;
  if (!elementName.empty() && elementName != name_) return found;
  if (!attributeKey.empty() && getAttribute(attributeKey) != attributeValue) return found;
  found.push_back(clone());
  return found;
}

std::string& XmlElement::attribute(std::string_view key) {
  // Elements carry up to four attributes, mostly: one allocation for all of them.
  if (attributes_.capacity() == 0) attributes_.reserve(4);
  const auto at = position(attributes_, key);
  if (at != attributes_.end() && at->first == key) return at->second;
  return attributes_.emplace(at, key, std::string())->second;
}

std::string XmlElement::getAttribute(std::string_view key) const {
  const auto at = position(attributes_, key);
  return at != attributes_.end() && at->first == key ? at->second : std::string();
}

size_t XmlElement::plainStartTagSize(std::string_view name, std::string_view end) const {
  size_t size = 1 + name.size() + end.size();
  for (const auto& [key, value] : attributes_) size += key.size() + value.size() + 4;
  return size;
}

// The tag is measured first and then written in place: one growth of `out` a tag instead
// of one a piece.
void XmlElement::writeStartTag(std::string& out, std::string_view name,
                               std::string_view end) const {
  size_t size = 1 + name.size() + end.size();
  for (const auto& [key, value] : attributes_) size += key.size() + escapedSize(value) + 4;
  const size_t start = out.size();
  out.resize(start + size);
  char* at = &out[start];
  *at++ = '<';
  at = writeText(at, name);
  for (const auto& [key, value] : attributes_) {
    *at++ = ' ';
    at = writeText(at, key);
    at = writeText(at, "=\"");
    at = writeEscaped(at, value);
    *at++ = '"';
  }
  writeText(at, end);
}

void XmlElement::copyAttributes(const XmlElement& other) {
  for (const auto& [key, value] : other.attributes_) {
    const auto at = position(attributes_, key);
    if (at == attributes_.end() || at->first != key) attributes_.emplace(at, key, value);
  }
  keyed_ = other.keyed_;
}

std::string escape(std::string value) {
  std::string escaped(escapedSize(value), '\0');
  writeEscaped(escaped.data(), value);
  return escaped;
}

}  // namespace orlo::core::xml
