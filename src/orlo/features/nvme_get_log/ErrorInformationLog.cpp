#include "orlo/features/nvme_get_log/ErrorInformationLog.h"

#include <string>

#include "orlo/commands/nvme/Layout.h"
#include "orlo/features/identify/IdentifyListWalk.h"
#include "orlo/features/identify/IdentifyTable.h"
#include "orlo/features/nvme_get_log/LogTree.h"

namespace orlo::features::nvme_get_log::errorInformation {

namespace {

using namespace identify::nvme::table;

constexpr uint32_t kEntrySize = commands::nvme::layout::kErrorInformationLog.size;
constexpr identify::nvme::ListWalk kEntries{0, kEntrySize};

constexpr const char* kStatusCodeTypeWords[] = {
    " (Generic Command Status)",
    " (Command Specific Status)",
    " (Media and Data Integrity Errors)",
    " (Path Related Status)",
    " (Reserved)",
    " (Reserved)",
    " (Reserved)",
    " (Vendor Specific)",
};
constexpr Words kStatusCodeType = appended(kStatusCodeTypeWords);

// clang-format off
// The status field as the completion queue entry carries it, with the phase tag in bit 0.
constexpr Row kStatusField[] = {
    field("Bit 0",      "Phase Tag",           decimal),
    field("Bits 8:1",   "Status Code",         hex(2)),
    field("Bits 11:9",  "Status Code Type",    decimal).named(kStatusCodeType),
    field("Bits 13:12", "Command Retry Delay", decimal),
    field("Bit 14",     "More",                decimal),
    field("Bit 15",     "Do Not Retry",        decimal),
};

constexpr Row kParameterErrorLocation[] = {
    field("Bits 7:0",  "Byte in Command", decimal),
    field("Bits 10:8", "Bit in Byte",     decimal),
};

constexpr Row kEntry[] = {
    field("Bytes 07:00", "Error Count",                            decimal),
    field("Bytes 09:08", "Submission Queue ID",                    hex(4)).as("sqid"),
    field("Bytes 11:10", "Command ID",                             hex(4)).as("cmdid"),
    group("Bytes 13:12", "Status Field",                           hex(4), kStatusField),
    group("Bytes 15:14", "Parameter Error Location",               hex(4), kParameterErrorLocation).as("parm_error_location"),
    field("Bytes 23:16", "LBA",                                    decimal),
    field("Bytes 27:24", "Namespace",                              hex(8)).as("nsid"),
    field("Byte 28",     "Vendor Specific Information Available",  hex(2)).as("vs"),
    field("Byte 29",     "Transport Type",                         decimal).as("trtype"),
    field("Bytes 31:30", "Reserved",                               longHex),
    field("Bytes 39:32", "Command Specific Information",           hex(16)).as("cs"),
    field("Bytes 41:40", "Transport Type Specific Information",    hex(4)).as("trtype_spec_info"),
    field("Bytes 63:42", "Reserved",                               longHex),
};
// clang-format on

static_assert(tiles(kEntry, kEntrySize));

}  // namespace

std::unique_ptr<core::xml::XmlObject> decode(const core::Payload& payload) {
  auto root = namedObject("Error Information Log (Log ID = 1)");
  if (!holdsLog(*root, payload, kEntrySize)) return root;
  uint32_t unused = 0;
  kEntries.walk(payload.size(), [&](uint32_t offset, uint32_t index) {
    const Source entry{payload, offset, 0};
    if (numberOf(kEntry[0], entry) == 0) {
      ++unused;
      return true;
    }
    auto child = namedObject("Error Information Entry " + std::to_string(index + 1));
    child->keyed() = core::xml::Keyed::entryObject("errors");
    addFields(*child, kEntry, entry);
    root->objects().push_back(std::move(child));
    return true;
  });
  addNameValue(*root, "Entries Not in Use", std::to_string(unused)).keyed() =
      core::xml::Keyed::number("entries_not_in_use", unused);
  return root;
}

}  // namespace orlo::features::nvme_get_log::errorInformation
