#include "orlo/core/xml/XmlObject.h"

#include <utility>

#include "orlo/core/Strings.h"
#include "orlo/core/xml/XmlProperty.h"

namespace orlo::core::xml {

namespace {

const char kObjectElement[] = "Object";

void writeAll(const XmlElementList& elements, std::string& out) {
  for (const auto& element : elements) element->write(out);
}

void cloneAll(const XmlElementList& from, XmlElementList& to) {
  for (const auto& element : from) to.push_back(element->clone());
}

void findAll(const XmlElementList& elements, const std::string& elementName,
             const std::string& attributeKey, const std::string& attributeValue, uint8_t depth,
             XmlElementList& found) {
  for (const auto& element : elements) {
    for (auto& match : element->find(elementName, attributeKey, attributeValue, depth)) {
      found.push_back(std::move(match));
    }
  }
}

}  // namespace

XmlObject::XmlObject() : XmlElement(kObjectElement) {}

XmlObject::XmlObject(std::string name, std::string description, std::string value) : XmlObject() {
  attribute("name") = std::move(name);
  attribute("description") = std::move(description);
  attribute("value") = std::move(value);
}

XmlObject::~XmlObject() = default;

void XmlObject::write(std::string& out) const {
  // One growth of `out` for the whole subtree, rather than many as it fills.
  out.reserve(out.size() + plainWrittenSize());
  writeStartTag(out, kObjectElement, ">");
  writeAll(properties_, out);
  writeAll(lists_, out);
  writeAll(objects_, out);
  out += "</";
  out += kObjectElement;
  out += '>';
}

size_t XmlObject::plainWrittenSize() const {
  size_t size = plainStartTagSize(kObjectElement, ">") + sizeof(kObjectElement) + 2;
  for (const auto* elements : {&properties_, &lists_, &objects_}) {
    for (const auto& element : *elements) size += element->plainWrittenSize();
  }
  return size;
}

XmlElementList XmlObject::find(std::string elementName, std::string attributeKey,
                               std::string attributeValue, uint8_t depth) const {
  if (depth == 0) return {};
  XmlElementList found = XmlElement::find(elementName, attributeKey, attributeValue, depth);
  const uint8_t below = depth - 1;
  findAll(objects_, elementName, attributeKey, attributeValue, below, found);
  findAll(lists_, elementName, attributeKey, attributeValue, below, found);
  findAll(properties_, elementName, attributeKey, attributeValue, below, found);
  return found;
}

std::unique_ptr<XmlElement> XmlObject::clone() const {
  auto copy = std::make_unique<XmlObject>();
  copy->copyAttributes(*this);
  cloneAll(properties_, copy->properties_);
  cloneAll(lists_, copy->lists_);
  cloneAll(objects_, copy->objects_);
  return copy;
}

bool XmlObject::isEmpty() const {
  return lists_.empty() && properties_.empty() && objects_.empty() && attributes().empty();
}

XmlProperty& XmlObject::addProperty(std::string name, std::string description, std::string value) {
  auto property = std::make_unique<XmlProperty>();
  property->attribute("name") = std::move(name);
  property->attribute("description") = std::move(description);
  property->attribute("value") = strings::sanitize(std::move(value));
  XmlProperty& added = *property;
  properties_.push_back(std::move(property));
  return added;
}

XmlObject& XmlObject::addObject(std::string name, std::unique_ptr<XmlObject> child) {
  child->attribute("name") = std::move(name);
  XmlObject& added = *child;
  objects_.push_back(std::move(child));
  return added;
}

}  // namespace orlo::core::xml
