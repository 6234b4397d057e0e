#include "orlo/features/nvme_get_log/FirmwareSlotLog.h"

#include "orlo/commands/nvme/Layout.h"
#include "orlo/features/identify/IdentifyTable.h"
#include "orlo/features/nvme_get_log/LogTree.h"

namespace orlo::features::nvme_get_log::firmwareSlot {

namespace {

using namespace identify::nvme::table;

constexpr uint32_t kLogSize = commands::nvme::layout::kFirmwareSlotLog.size;

constexpr const char* kNextResetWords[] = {" (none given: the active slot stays)"};
constexpr Words kNextReset = appended(kNextResetWords);

// clang-format off
constexpr Row kActiveFirmwareInfo[] = {
    field("Bits 2:0", "Active Firmware Slot",     decimal),
    field("Bits 6:4", "Next Reset Firmware Slot", decimal).named(kNextReset),
};

constexpr Row kRows[] = {
    group("Byte 00",      "Active Firmware Info",         hex(2), kActiveFirmwareInfo),
    field("Bytes 07:01",  "Reserved",                     longHex),
    field("Bytes 15:08",  "Firmware Revision for Slot 1", textOr("Empty")),
    field("Bytes 23:16",  "Firmware Revision for Slot 2", textOr("Empty")),
    field("Bytes 31:24",  "Firmware Revision for Slot 3", textOr("Empty")),
    field("Bytes 39:32",  "Firmware Revision for Slot 4", textOr("Empty")),
    field("Bytes 47:40",  "Firmware Revision for Slot 5", textOr("Empty")),
    field("Bytes 55:48",  "Firmware Revision for Slot 6", textOr("Empty")),
    field("Bytes 63:56",  "Firmware Revision for Slot 7", textOr("Empty")),
    field("Bytes 511:64", "Reserved",                     longHex),
};
// clang-format on

static_assert(tiles(kRows, kLogSize));

}  // namespace

std::unique_ptr<core::xml::XmlObject> decode(const core::Payload& payload) {
  auto root = namedObject("Firmware Slot Information Log (Log ID = 3)");
  if (holdsLog(*root, payload, kLogSize)) addFields(*root, kRows, Source{payload, 0, 0});
  return root;
}

}  // namespace orlo::features::nvme_get_log::firmwareSlot
