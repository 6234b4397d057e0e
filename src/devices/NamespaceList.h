#pragma once

#include <cstdint>
#include <vector>

#include "orlo/core/Payload.h"

namespace orlo::devices {

// As many namespaces as a device image keeps the structures of.
inline constexpr uint32_t kMostImagedNamespaces = 16;

// The namespace IDs of an Identify namespace list, in its order: up to the first 0 (the
// list's end), the end of the payload, or kMostImagedNamespaces of them.
std::vector<uint32_t> listedNamespaces(const core::Payload& list);

}  // namespace orlo::devices
