#include "plugins/plugin.cliframework/XmlTreeResult.h"

#include <cstdio>
#include <utility>

#include "plugins/plugin.cliframework/JsonStringLiteral.h"
#include "plugins/plugin.cliframework/Utf8Sequence.h"

namespace plugin::cli {

namespace {

using orlo::core::xml::XmlElement;
using orlo::core::xml::XmlObject;

const std::string nameKey = "name";
const std::string keyKey = "key";
const std::string descriptionKey = "description";
const std::string valueKey = "value";
const std::string childrenKey = "children";

// Device texts may hold control bytes and bytes that are not UTF-8. Text, CSV and
// XML show them as \xNN, so that every element keeps to its own line and the XML
// stays well-formed (XML 1.0 has no form for most control characters).
std::string visible(const std::string& text) {
  std::string shown;
  for (std::size_t at = 0; at < text.size();) {
    const auto byte = static_cast<unsigned char>(text[at]);
    const std::size_t length = utf8SequenceLength(text, at);
    if (length == 0 || (length == 1 && (byte < 0x20 || byte == 0x7F))) {
      char code[5];
      std::snprintf(code, sizeof code, "\\x%02X", byte);
      shown += code;
      ++at;
    } else {
      shown += text.substr(at, length);
      at += length;
    }
  }
  return shown;
}

// A CSV field, quoted when it holds a comma, a quotation mark or a blank at an end.
std::string csvField(const std::string& text) {
  const std::string shown = visible(text);
  const bool quote = shown.find_first_of(",\"") != std::string::npos ||
                     (!shown.empty() && (shown.front() == ' ' || shown.back() == ' '));
  if (!quote) return shown;
  std::string quoted = "\"";
  for (const char c : shown) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return quoted + "\"";
}

const std::string* fieldValue(const std::vector<std::pair<std::string, std::string>>& fields,
                              const std::string& key) {
  for (const auto& [fieldKey, value] : fields) {
    if (fieldKey == key) return &value;
  }
  return nullptr;
}

}  // namespace

XmlTreeResult::XmlTreeResult(std::unique_ptr<XmlObject> tree)
    : ResultBase(tree->getAttribute(nameKey), ""), tree_(std::move(tree)) {}

XmlTreeResult::Fields XmlTreeResult::fieldsOf(const XmlElement& element) {
  Fields fields;
  for (const auto& [key, value] : element.attributes()) {
    if (key == keyKey && value == element.getAttribute(nameKey)) continue;
    fields.emplace_back(key, value);
  }
  return fields;
}

std::vector<const XmlElement*> XmlTreeResult::childrenOf(const XmlElement& element) {
  std::vector<const XmlElement*> children;
  const auto* object = dynamic_cast<const XmlObject*>(&element);
  if (object == nullptr) return children;
  for (const auto* list : {&object->properties(), &object->lists(), &object->objects()}) {
    for (const auto& child : *list) children.push_back(child.get());
  }
  return children;
}

std::string XmlTreeResult::toText(uint32_t level) const {
  std::string out;
  writeText(*tree_, level, out);
  return out;
}

void XmlTreeResult::writeText(const XmlElement& element, uint32_t level, std::string& out) {
  const Fields fields = fieldsOf(element);
  if (fields.empty()) {
    for (const auto* child : childrenOf(element)) writeText(*child, level, out);
    return;
  }
  const std::string* name = fieldValue(fields, nameKey);
  const std::string* description = fieldValue(fields, descriptionKey);
  const std::string* value = fieldValue(fields, valueKey);
  std::string line;
  if (description != nullptr && !description->empty()) {
    line = visible(*description);
    if (name != nullptr) line += " [" + visible(*name) + "]";
  } else if (name != nullptr) {
    line = visible(*name);
  }
  if (value != nullptr) line += value->empty() ? ":" : ": " + visible(*value);
  for (const auto& [key, text] : fields) {
    if (key == nameKey || key == descriptionKey || key == valueKey) continue;
    line += (line.empty() ? "(" : " (") + key + ": " + visible(text) + ")";
  }
  out += indent(level) + line + "\n";
  for (const auto* child : childrenOf(element)) writeText(*child, level + 1, out);
}

std::string XmlTreeResult::toCsv() const {
  std::string out = "Level,Name,Description,Value,Other\n";
  writeCsv(*tree_, 0, out);
  return out;
}

void XmlTreeResult::writeCsv(const XmlElement& element, uint32_t level, std::string& out) {
  const Fields fields = fieldsOf(element);
  if (fields.empty()) {
    for (const auto* child : childrenOf(element)) writeCsv(*child, level, out);
    return;
  }
  std::string other;
  for (const auto& [key, text] : fields) {
    if (key == nameKey || key == descriptionKey || key == valueKey) continue;
    other += (other.empty() ? "" : "; ") + key + "=" + text;
  }
  out += std::to_string(level);
  for (const auto& key : {nameKey, descriptionKey, valueKey}) {
    const std::string* text = fieldValue(fields, key);
    out += "," + csvField(text == nullptr ? "" : *text);
  }
  out += "," + csvField(other) + "\n";
  for (const auto* child : childrenOf(element)) writeCsv(*child, level + 1, out);
}

std::string XmlTreeResult::toJson(uint32_t level) const {
  std::string out = indent(level);
  writeJson(*tree_, level, out);
  return out;
}

// Writes the element's object from its opening brace; the caller has indented it.
void XmlTreeResult::writeJson(const XmlElement& element, uint32_t level, std::string& out) {
  const std::string inner = indent(level + 1);
  std::vector<std::string> members;
  for (const auto& [key, text] : fieldsOf(element)) {
    members.push_back(inner + jsonStringLiteral(key) + ": " + jsonStringLiteral(text));
  }
  const auto children = childrenOf(element);
  if (!children.empty()) {
    std::string array = inner + jsonStringLiteral(childrenKey) + ": [";
    for (std::size_t i = 0; i < children.size(); ++i) {
      array += (i == 0 ? "\n" : ",\n") + indent(level + 2);
      writeJson(*children[i], level + 2, array);
    }
    members.push_back(array + "\n" + inner + "]");
  }
  out += "{";
  for (std::size_t i = 0; i < members.size(); ++i) out += (i == 0 ? "\n" : ",\n") + members[i];
  out += members.empty() ? "}" : "\n" + indent(level) + "}";
}

std::string XmlTreeResult::toXml(uint32_t level) const {
  std::string out = xmlHeader(level);
  writeXml(*tree_, level, out);
  return out;
}

void XmlTreeResult::writeXml(const XmlElement& element, uint32_t level, std::string& out) {
  const std::string tag = element.name();
  out += indent(level) + "<" + tag;
  for (const auto& [key, text] : element.attributes()) {
    out += " " + key + "=\"" + orlo::core::xml::escape(visible(text)) + "\"";
  }
  const auto children = childrenOf(element);
  if (dynamic_cast<const XmlObject*>(&element) == nullptr) {
    out += "/>\n";
    return;
  }
  if (children.empty()) {
    out += "></" + tag + ">\n";
    return;
  }
  out += ">\n";
  for (const auto* child : children) writeXml(*child, level + 1, out);
  out += indent(level) + "</" + tag + ">\n";
}

}  // namespace plugin::cli
