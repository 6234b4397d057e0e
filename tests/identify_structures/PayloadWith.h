#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "orlo/core/Payload.h"

namespace identify_test {

// A zeroed payload of `size` bytes with each run of bytes written at its offset.
inline orlo::core::Payload payloadWith(
    uint32_t size, std::initializer_list<std::pair<uint32_t, std::vector<uint8_t>>> runs) {
  orlo::core::Payload payload(size);
  for (const auto& [offset, bytes] : runs) {
    for (std::size_t i = 0; i < bytes.size(); ++i) payload[offset + i] = bytes[i];
  }
  return payload;
}

// The tree of a structure named `name` that holds nothing.
inline std::string emptyTree(const std::string& name) {
  return "<Object key=\"" + name + "\" name=\"" + name + "\"></Object>";
}

}  // namespace identify_test
