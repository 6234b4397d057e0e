#include "orlo/features/feature/UUID/UUIDListReader.h"

#include <algorithm>
#include <cstddef>

#include "orlo/commands/nvme/Layout.h"

namespace orlo::features::uuid {

namespace {

namespace layout = commands::nvme::layout;
constexpr std::size_t kListSize = layout::kIdentifySize;
constexpr std::size_t kFirstEntry = layout::kUuidListHeader;
constexpr std::size_t kEntrySize = layout::kUuidListEntrySize;
constexpr std::size_t kUUIDOffset = layout::kUuidInEntry;
constexpr std::size_t kMaxEntries = layout::kUuidListEntries;
static_assert(sizeof(UUIDListEntry) == kEntrySize);

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
