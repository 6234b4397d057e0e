#include "orlo/features/feature/UUID/UUIDListReader.h"

#include <algorithm>
#include <cstddef>

namespace orlo::features::uuid {

namespace {

constexpr uint32_t kListSize = 4096;
constexpr std::size_t kFirstEntry = 32;
constexpr std::size_t kEntrySize = sizeof(UUIDListEntry);
constexpr std::size_t kUUIDOffset = 16;
// As many entries as fit behind the reserved first 32 bytes.
constexpr std::size_t kMaxEntries = (kListSize - kFirstEntry) / kEntrySize;

}  // namespace

std::vector<UUIDListEntry> readUUIDList(const core::Payload& payload) {
  std::vector<UUIDListEntry> entries;
  if (payload.size() < kListSize) return entries;
  for (std::size_t i = 0; i < kMaxEntries; ++i) {
    const uint8_t* entry = payload.data() + kFirstEntry + i * kEntrySize;
    const uint8_t* end = entry + kEntrySize;
    if (std::all_of(entry + kUUIDOffset, end, [](uint8_t byte) { return byte == 0; })) break;
    UUIDListEntry taken;
    std::copy(entry, end, taken.begin());
    entries.push_back(taken);
  }
  return entries;
}

}  // namespace orlo::features::uuid
