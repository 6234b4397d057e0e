#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "orlo/core/Payload.h"

namespace orlo::features::uuid {

// One 32-byte entry of the Identify UUID list (CNS 23): the association in byte 0,
// the UUID in bytes 16 to 31.
using UUIDListEntry = std::array<uint8_t, 32>;

// The entries of a 4096-byte UUID list, from byte 32, up to the first whose UUID is
// zero and at most 127; none for a shorter payload.
std::vector<UUIDListEntry> readUUIDList(const core::Payload& payload);

}  // namespace orlo::features::uuid
