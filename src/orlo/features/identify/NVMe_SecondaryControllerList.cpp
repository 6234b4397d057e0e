#include "orlo/features/identify/NVMe_SecondaryControllerList.h"

#include <string>

#include "orlo/core/Payload.h"
#include "orlo/features/identify/IdentifyListWalk.h"
#include "orlo/features/identify/IdentifyTable.h"

namespace orlo::features::identify::nvme::secondaryControllerList {

namespace {

using namespace table;

// clang-format off
constexpr Row kHeader[] = {
    field("Byte 0", "Number of Identifiers", bareHex()),
    reserved("Byte 1-31"),
};

constexpr Row kControllerState[] = {
    field("Bit 7:1", "Reserved",     hex()),
    field("Bit 0",   "Online State", decimal),
};

constexpr Row kEntry[] = {
    field("Byte 0-1",   "Secondary Controller Identifier",          bareHex()),
    field("Byte 2-3",   "Primary Controller Identifier",            bareHex()),
    group("Byte 4",     "Secondary Controller State",               decimal, kControllerState),
    reserved("Byte 5-7"),
    field("Byte 8-9",   "Virtual Function Number",                  bareHex()),
    field("Byte 10-11", "Number of VQ Flexible Resources Assigned", bareHex()),
    field("Byte 12-13", "Number of VI Flexible Resources Assigned", bareHex()),
    reserved("Byte 14-31"),
};
// clang-format on
constexpr uint32_t kEntrySize = 32;
static_assert(tiles(kHeader, kEntrySize) && tiles(kEntry, kEntrySize));

// An entry's label gives its end before its start ("Byte 32-31" for the first); readers of
// these trees know the labels in this form.
std::string labelOf(uint32_t index) {
  const uint32_t start = kEntrySize * (index + 1);
  return "Byte " + std::to_string(start) + "-" + std::to_string(start - 1);
}

}  // namespace

std::unique_ptr<core::xml::XmlObject> toXmlObject(const core::Payload& payload) {
  auto root = std::make_unique<core::xml::XmlObject>();
  if (payload.size() < kReplySize) {
    return root;
  }
  nameRoot(*root, "Secondary Controller List");
  const Source source{payload, 0, 0};
  addFields(*root, kHeader, source);
  const ListWalk entries{kEntrySize, kEntrySize, payload.data()[0]};
  entries.walk(payload.size(), [&](uint32_t offset, uint32_t index) {
    const std::string label = labelOf(index);
    auto entry =
        std::make_unique<core::xml::XmlObject>(label, "SC Entry " + std::to_string(index), "");
    entry->keyed() = core::xml::Keyed::entryObject("sc_entries");
    addFields(*entry, kEntry, source.at(offset));
    root->addObject(label, std::move(entry));
    return true;
  });
  return root;
}

}  // namespace orlo::features::identify::nvme::secondaryControllerList
