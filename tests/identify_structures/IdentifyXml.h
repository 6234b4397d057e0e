#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "orlo/core/Payload.h"
#include "orlo/core/xml/XmlObject.h"

namespace identify_test {

// Expected XML of a field or group: an Object with description, name and value.
inline std::string object(const std::string& name, const std::string& description,
                          const std::string& value, const std::string& children = "") {
  return "<Object description=\"" + description + "\" name=\"" + name + "\" value=\"" + value +
         "\">" + children + "</Object>";
}

inline std::string property(const std::string& name, const std::string& description,
                            const std::string& value) {
  return "<Property description=\"" + description + "\" name=\"" + name + "\" value=\"" + value +
         "\"/>";
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
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      payload[offset + i] = bytes[i];
    }
  }
  return payload;
}

}  // namespace identify_test
