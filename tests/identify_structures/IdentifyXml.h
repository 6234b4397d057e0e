#pragma once

#include <cstdint>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "orlo/core/Payload.h"
#include "orlo/core/xml/XmlObject.h"

namespace identify_test {

// The XML text of a tree written as an outline, one element a line: "O name|description|value"
// for an object, "P name|description|value" for a property, "N name" for an object with a name
// alone. An element indented further than the object above it lies inside that object.
inline std::string treeXml(const std::string& rootAttributes, const std::string& outline) {
  std::string xml = "<Object" + rootAttributes + ">";
  std::vector<std::size_t> open;  // the indentation of each open object
  std::istringstream lines(outline);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t indent = line.find_first_not_of(' ');
    if (indent == std::string::npos) continue;
    for (; !open.empty() && open.back() >= indent; open.pop_back()) xml += "</Object>";
    const char kind = line[indent];
    const std::string text = line.substr(indent + 2);
    const std::size_t bar = text.find('|'), secondBar = text.find('|', bar + 1);
    const std::string attributes =
        kind == 'N' ? " name=\"" + text + "\""
                    : " description=\"" + text.substr(bar + 1, secondBar - bar - 1) + "\" name=\"" +
                          text.substr(0, bar) + "\" value=\"" + text.substr(secondBar + 1) + "\"";
    if (kind == 'P') {
      xml += "<Property" + attributes + "/>";
      continue;
    }
    xml += "<Object" + attributes + ">";
    open.push_back(indent);
  }
  for (; !open.empty(); open.pop_back()) xml += "</Object>";
  return xml + "</Object>";
}

// An outline kept in the test data folder of these structures.
inline std::string outline(const std::string& name) {
  std::ifstream in(std::string(ORLO_TEST_DATA_DIR) + "/identify_structures/" + name);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

// The attributes of a root named `name`, as they are written.
inline std::string named(const std::string& name) {
  return " key=\"" + name + "\" name=\"" + name + "\"";
}

inline std::string xmlOf(const std::unique_ptr<orlo::core::xml::XmlObject>& tree) {
  std::string out;
  tree->write(out);
  return out;
}

// A zeroed payload of `size` bytes with each run of bytes written at its offset.
inline orlo::core::Payload payloadWith(
    uint32_t size, std::initializer_list<std::pair<uint32_t, std::vector<uint8_t>>> runs) {
  orlo::core::Payload payload(size);
  for (const auto& [offset, bytes] : runs) {
    for (std::size_t i = 0; i < bytes.size(); ++i) payload[offset + i] = bytes[i];
  }
  return payload;
}

}  // namespace identify_test
