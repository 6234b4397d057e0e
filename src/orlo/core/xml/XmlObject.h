#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "orlo/core/xml/XmlElement.h"

namespace orlo::core::xml {

class XmlProperty;

// A node with children, written as <Object ...>properties, lists, objects</Object>.
// The object owns its children.
class XmlObject : public XmlElement {
 public:
  XmlObject();
  // Sets the attributes name, description and value; description also when empty.
  XmlObject(std::string name, std::string description, std::string value);
  ~XmlObject() override;

  void write(std::string& out) const override;
  size_t plainWrittenSize() const override;
  // This element (if it matches), then what each child in objects, lists and properties
  // gives with depth less one. A depth of 0 gives nothing.
  XmlElementList find(std::string elementName, std::string attributeKey, std::string attributeValue,
                      uint8_t depth) const override;
  // A deep copy; the copy of a derived object is a plain XmlObject.
  std::unique_ptr<XmlElement> clone() const override;
  bool isEmpty() const override;

  // Appends a property with the attributes name, description (also when empty) and the
  // sanitized value.
  XmlProperty& addProperty(std::string name, std::string description, std::string value);
  // Names the child and appends it to the objects.
  XmlObject& addObject(std::string name, std::unique_ptr<XmlObject> child);

  XmlElementList& lists() { return lists_; }
  XmlElementList& properties() { return properties_; }
  XmlElementList& objects() { return objects_; }
  const XmlElementList& lists() const { return lists_; }
  const XmlElementList& properties() const { return properties_; }
  const XmlElementList& objects() const { return objects_; }

 private:
  XmlElementList lists_;
  XmlElementList properties_;
  XmlElementList objects_;
};

}  // namespace orlo::core::xml
