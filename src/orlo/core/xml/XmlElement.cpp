#include "orlo/core/xml/XmlElement.h"

#include <cstring>

#include "orlo/core/Strings.h"

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

std::string& XmlElement::attribute(const std::string& key) {
  return attributes_[key];
}

std::string XmlElement::getAttribute(const std::string& key) const {
  const auto entry = attributes_.find(key);
  return entry == attributes_.end() ? std::string() : entry->second;
}

void XmlElement::writeAttributes(std::string& out) const {
  for (const auto& [key, value] : attributes_) {
    out += ' ';
    out += key;
    out += "=\"";
    out += escape(value);
    out += '"';
  }
}

void XmlElement::copyAttributes(const XmlElement& other) {
  attributes_.insert(other.attributes_.begin(), other.attributes_.end());
}

std::string escape(std::string value) {
  strings::replaceAll(value, "<", "&lt;");
  strings::replaceAll(value, ">", "&gt;");
  strings::replaceAll(value, "&", "&amp;");
  strings::replaceAll(value, "\"", "&quot;");
  strings::replaceAll(value, "'", "&apos;");
  return value;
}

}  // namespace orlo::core::xml
