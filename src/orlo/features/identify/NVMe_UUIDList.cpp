#include "orlo/features/identify/NVMe_UUIDList.h"

#include <string>

#include "orlo/commands/nvme/Layout.h"
#include "orlo/core/Logging.h"
#include "orlo/core/Payload.h"
#include "orlo/features/identify/IdentifyListWalk.h"
#include "orlo/features/identify/IdentifyTable.h"
#include "orlo/features/identify/IdentifyValueForms.h"

namespace orlo::features::identify::nvme::UUIDList {

namespace {

using namespace table;

constexpr ListWalk kEntries{32, 32, 127};

// clang-format off
constexpr Row kHeader[] = {
    field("Byte 0-31", "Reserved", longHex),
};

constexpr const char* kAssociationWords[] = {
    "No association reported",
    "The UUID is associated with the vendor reported in the PCI Vendor ID field of the Identify "
    "Controller data structure",
    "The UUID is associated with the vendor reported in the PCI Subsystem Vendor ID field of the "
    "Identify Controller data structure",
    "Reserved",
};
constexpr Words kAssociation = replacing(kAssociationWords);

constexpr Row kEntry[] = {
    // The association is the byte's low two bits.
    field("Byte 0",     "Identifier Association", decimal).readsBits(bits(1, 0)).named(kAssociation),
    field("Byte 1-15",  "Reserved",               longHex),
    field("Byte 16-31", "UUID",                   longHexReversed),
};
// clang-format on

static_assert(tiles(kHeader, kEntries.start) && tiles(kEntry, kEntries.stride));

bool isZeroUuid(const core::Payload& payload, uint32_t entry) {
  namespace layout = commands::nvme::layout;
  const uint32_t uuid = entry + layout::kUuidInEntry;
  return valueForms::littleEndian(payload, uuid, 8) == 0 &&
         valueForms::littleEndian(payload, uuid + 8, 8) == 0;
}

}  // namespace

std::unique_ptr<core::xml::XmlObject> toXmlObject(const core::Payload& payload) {
  auto root = std::make_unique<core::xml::XmlObject>();
  if (payload.size() < kReplySize) {
    return root;
  }
  nameRoot(*root, "Universally Unique Identifier (UUID) List");
  const Source source{payload, 0, 0};
  addFields(*root, kHeader, source);
  const uint32_t taken = kEntries.walk(payload.size(), [&](uint32_t offset, uint32_t index) {
    if (isZeroUuid(payload, offset)) {
      return false;
    }
    const std::string name = "UUID List Entry " + std::to_string(index + 1);
    auto entry = std::make_unique<core::xml::XmlObject>();
    entry->keyed() = core::xml::Keyed::entryObject("uuids");
    addProperties(*entry, kEntry, source.at(offset));
    root->addObject(name, std::move(entry));
    return true;
  });
  ORLO_LOG(debug, "Total number of uuid fields : " << taken);
  return root;
}

}  // namespace orlo::features::identify::nvme::UUIDList
