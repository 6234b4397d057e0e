#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "orlo/core/xml/XmlElement.h"
#include "orlo/core/xml/XmlObject.h"
#include "plugins/plugin.cliframework/ResultBase.h"

namespace plugin::cli {

// A decoded tree (an Identify structure, a log page) as a command's result. Every
// element is one entry with the fields of its attributes and its children in the
// order in which the tree writes them: properties, lists, objects. Text, CSV and
// JSON show the same fields: all attributes but a `key` that repeats `name`. XML
// keeps the tree's own elements and attributes.
//
// Text: one line an element, two blanks a level: "description [name]: value",
// or "name: value" without a description, other attributes behind in
// parentheses. CSV: a header, then one row an element with its level. An element
// without fields (the root of some lists) has no line or row: its children stand
// in its place. JSON: a valid document, an object an element with its fields and
// a "children" array.
class XmlTreeResult : public ResultBase {
 public:
  // The result is named after the root's `name`.
  explicit XmlTreeResult(std::unique_ptr<orlo::core::xml::XmlObject> tree);
  ~XmlTreeResult() override = default;

  std::string toText(uint32_t level) const override;
  std::string toCsv() const override;
  std::string toJson(uint32_t level) const override;
  std::string toXml(uint32_t level) const override;

  const orlo::core::xml::XmlObject& tree() const { return *tree_; }

 private:
  using Field = std::pair<std::string, std::string>;
  using Fields = std::vector<Field>;

  // The attributes shown in text, CSV and JSON, in key order.
  static Fields fieldsOf(const orlo::core::xml::XmlElement& element);
  // The children of an object in the order of the tree's own XML; none for a leaf.
  static std::vector<const orlo::core::xml::XmlElement*> childrenOf(
      const orlo::core::xml::XmlElement& element);

  static void writeText(const orlo::core::xml::XmlElement& element, uint32_t level,
                        std::string& out);
  static void writeCsv(const orlo::core::xml::XmlElement& element, uint32_t level,
                       std::string& out);
  static void writeJson(const orlo::core::xml::XmlElement& element, uint32_t level,
                        std::string& out);
  static void writeXml(const orlo::core::xml::XmlElement& element, uint32_t level,
                       std::string& out);

  std::unique_ptr<orlo::core::xml::XmlObject> tree_;
};

}  // namespace plugin::cli
