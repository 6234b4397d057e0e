#include "orlo/core/xml/XmlElement.h"

#include <algorithm>
#include <cstring>

namespace orlo::core::xml {

XmlElement::XmlElement(std::string name) : name_(std::move(name)) {}

XmlElement::~XmlElement() {
  for (auto& entry : attributes_) explicit_bzero(entry.second.data(), entry.second.size());
}

XmlElementList XmlElement::find(std::string elementName, std::string attributeKey,
                                std::string attributeValue, uint8_t /*depth*/) const {
  XmlElementList found;
  if (!elementName.empty() && elementName != name_) return found;
  if (!attributeKey.empty() && getAttribute(attributeKey) != attributeValue) return found;
  found.push_back(clone());
  return found;
}

namespace {

// Where `key` stands in `attributes`, or would be inserted.
template <typename Attributes>
auto position(Attributes& attributes, const std::string& key) {
  return std::lower_bound(attributes.begin(), attributes.end(), key,
                          [](const auto& entry, const std::string& k) { return entry.first < k; });
}

// What each character becomes after the five replacements ("<", ">", "&", the double quote,
// the apostrophe, in that order); null for a character that stays.
const char* replacementOf(char c) {
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

}  // namespace

std::string& XmlElement::attribute(const std::string& key) {
  // Elements carry up to four attributes, mostly: one allocation for all of them.
  if (attributes_.capacity() == 0) attributes_.reserve(4);
  const auto at = position(attributes_, key);
  if (at != attributes_.end() && at->first == key) return at->second;
  return attributes_.emplace(at, key, std::string())->second;
}

std::string XmlElement::getAttribute(const std::string& key) const {
  const auto at = position(attributes_, key);
  return at != attributes_.end() && at->first == key ? at->second : std::string();
}

void XmlElement::writeAttributes(std::string& out) const {
  for (const auto& [key, value] : attributes_) {
    out += ' ';
    out += key;
    out += "=\"";
    appendEscaped(out, value);
    out += '"';
  }
}

void XmlElement::copyAttributes(const XmlElement& other) {
  for (const auto& [key, value] : other.attributes_) {
    const auto at = position(attributes_, key);
    if (at == attributes_.end() || at->first != key) attributes_.emplace(at, key, value);
  }
}

// One pass gives what the five replacements in a row give: each replacement goes on behind
// what it inserted, and only the "&" step finds the ampersands of the two before it.
void appendEscaped(std::string& out, const std::string& value) {
  size_t plain = 0;
  for (size_t i = 0; i < value.size(); ++i) {
    // Letters and most signs lie above ">", the last of the five.
    if (static_cast<unsigned char>(value[i]) > '>') continue;
    const char* replacement = replacementOf(value[i]);
    if (replacement == nullptr) continue;
    out.append(value, plain, i - plain);
    out += replacement;
    plain = i + 1;
  }
  out.append(value, plain, std::string::npos);
}

std::string escape(std::string value) {
  std::string escaped;
  appendEscaped(escaped, value);
  return escaped;
}

}  // namespace orlo::core::xml
