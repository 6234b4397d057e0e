#include "orlo/features/nvme_get_log/DeviceSelfTestLog.h"

#include <string>

#include "orlo/commands/nvme/Layout.h"
#include "orlo/features/identify/IdentifyListWalk.h"
#include "orlo/features/identify/IdentifyTable.h"
#include "orlo/features/nvme_get_log/LogTree.h"

namespace orlo::features::nvme_get_log::deviceSelfTest {

namespace {

using namespace identify::nvme::table;

constexpr uint32_t kLogSize = commands::nvme::layout::kDeviceSelfTestLog.size;
constexpr uint32_t kHeaderSize = 4;
constexpr uint32_t kResultSize = 28;
constexpr uint32_t kResults = 20;
constexpr identify::nvme::ListWalk kResultWalk{kHeaderSize, kResultSize, kResults};
// The result of an entry that holds no test.
constexpr uint64_t kEntryNotUsed = 0xF;

constexpr const char* kOperationWords[] = {
    " (No device self-test operation in progress)",
    " (Short device self-test operation in progress)",
    " (Extended device self-test operation in progress)",
    " (Reserved)",
    " (Reserved)",
    " (Reserved)",
    " (Reserved)",
    " (Reserved)",
    " (Reserved)",
    " (Reserved)",
    " (Reserved)",
    " (Reserved)",
    " (Reserved)",
    " (Reserved)",
    " (Vendor specific)",
};
constexpr Words kOperation = appended(kOperationWords, " (Reserved)");

constexpr const char* kResultWords[] = {
    " (Completed without error)",
    " (Aborted by a Device Self-test command)",
    " (Aborted by a Controller Level Reset)",
    " (Aborted by the removal of a namespace from the namespace inventory)",
    " (Aborted by a Format NVM command)",
    " (A fatal error or unknown test error occurred; the operation did not complete)",
    " (Completed with a failed segment that is not known)",
    " (Completed with one or more failed segments; the first is in the Segment Number)",
    " (Aborted for an unknown reason)",
    " (Aborted by a sanitize operation)",
    " (Reserved)",
    " (Reserved)",
    " (Reserved)",
    " (Reserved)",
    " (Reserved)",
    " (Entry not used)",
};
constexpr Words kResult = appended(kResultWords);

// clang-format off
constexpr Row kCurrentOperation[] = {
    field("Bits 3:0", "Operation", hex(1)).named(kOperation),
};
constexpr Row kCurrentCompletion[] = {
    field("Bits 6:0", "Percent Complete", decimalIn("%")),
};

constexpr Row kHeader[] = {
    group("Byte 00",     "Current Device Self-test Operation",  hex(2), kCurrentOperation),
    group("Byte 01",     "Current Device Self-test Completion", hex(2), kCurrentCompletion),
    field("Bytes 03:02", "Reserved",                            hex(4)),
};

constexpr const char* kCodeWords[] = {
    " (Reserved)", " (Short device self-test)", " (Extended device self-test)",
    " (Reserved)", " (Reserved)", " (Reserved)", " (Reserved)", " (Reserved)",
    " (Reserved)", " (Reserved)", " (Reserved)", " (Reserved)", " (Reserved)",
    " (Reserved)", " (Vendor specific)",
};
constexpr Words kCode = appended(kCodeWords, " (Reserved)");

constexpr Row kStatus[] = {
    field("Bits 3:0", "Result of the Device Self-test Operation", hex(1)).named(kResult),
    field("Bits 7:4", "Device Self-test Code",                    hex(1)).named(kCode),
};

constexpr Row kValidDiagnostics[] = {
    field("Bit 0", "Namespace Identifier Valid", decimal),
    field("Bit 1", "Failing LBA Valid",          decimal),
    field("Bit 2", "Status Code Type Valid",     decimal),
    field("Bit 3", "Status Code Valid",          decimal),
};

constexpr Row kResultRows[] = {
    group("Byte 00",     "Device Self-test Status",       hex(2), kStatus),
    field("Byte 01",     "Segment Number",                decimal),
    group("Byte 02",     "Valid Diagnostic Information",  hex(2), kValidDiagnostics),
    field("Byte 03",     "Reserved",                      hex(2)),
    field("Bytes 11:04", "Power On Hours",                decimalIn(" hours")),
    field("Bytes 15:12", "Namespace Identifier",          hex(8)),
    field("Bytes 23:16", "Failing LBA",                   decimal),
    field("Byte 24",     "Status Code Type",              hex(2)),
    field("Byte 25",     "Status Code",                   hex(2)),
    field("Bytes 27:26", "Vendor Specific",               hex(4)),
};
// clang-format on

static_assert(tiles(kHeader, kHeaderSize));
static_assert(tiles(kResultRows, kResultSize));
static_assert(kHeaderSize + kResults * kResultSize == kLogSize);

}  // namespace

std::unique_ptr<core::xml::XmlObject> decode(const core::Payload& payload) {
  auto root = namedObject("Device Self-test Log (Log ID = 6)");
  if (!holdsLog(*root, payload, kLogSize)) return root;
  const Source source{payload, 0, 0};
  addFields(*root, kHeader, source);
  uint32_t unused = 0;
  kResultWalk.walk(payload.size(), [&](uint32_t offset, uint32_t index) {
    const Source result = source.at(offset);
    if (numberOf(kStatus[0], kResultRows[0], result) == kEntryNotUsed) {
      ++unused;
      return true;
    }
    auto child = namedObject("Self-test Result " + std::to_string(index + 1));
    child->keyed() = core::xml::Keyed::entryObject("results");
    addFields(*child, kResultRows, result);
    root->objects().push_back(std::move(child));
    return true;
  });
  addNameValue(*root, "Results Not in Use", std::to_string(unused)).keyed() =
      core::xml::Keyed::number("results_not_in_use", unused);
  return root;
}

}  // namespace orlo::features::nvme_get_log::deviceSelfTest
