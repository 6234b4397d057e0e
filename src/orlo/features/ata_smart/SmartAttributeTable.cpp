#include "orlo/features/ata_smart/SmartAttributeTable.h"

#include <algorithm>
#include <iterator>

namespace orlo::features::ata_smart {

namespace {

// By id, ascending.
constexpr KnownAttribute kKnownAttributes[] = {
    {1, "Raw Read Error Rate", RawForm::Count48},
    {2, "Throughput Performance", RawForm::Count48},
    {3, "Spin-Up Time", RawForm::Count32},
    {4, "Start/Stop Count", RawForm::Count32},
    {5, "Reallocated Sector Count", RawForm::Count48},
    {7, "Seek Error Rate", RawForm::Count48},
    {9, "Power-On Hours", RawForm::Count32},
    {10, "Spin Retry Count", RawForm::Count48},
    {12, "Power Cycle Count", RawForm::Count48},
    {171, "Program Fail Count", RawForm::Count48},
    {172, "Erase Fail Count", RawForm::Count48},
    {174, "Unexpected Power Loss Count", RawForm::Count48},
    {177, "Wear Range Delta", RawForm::Count48},
    {181, "Program Fail Count Total", RawForm::Count48},
    {182, "Erase Fail Count Total", RawForm::Count48},
    {183, "Runtime Bad Block", RawForm::Count48},
    {184, "End-to-End Error", RawForm::Count48},
    {187, "Reported Uncorrectable Errors", RawForm::Count48},
    {188, "Command Timeout", RawForm::Count48},
    {190, "Airflow Temperature", RawForm::Celsius},
    {192, "Power-off Retract Count", RawForm::Count48},
    {193, "Load Cycle Count", RawForm::Count32},
    {194, "Temperature", RawForm::Celsius},
    {195, "Hardware ECC Recovered", RawForm::Count48},
    {196, "Reallocation Event Count", RawForm::Count48},
    {197, "Current Pending Sector Count", RawForm::Count48},
    {198, "Offline Uncorrectable", RawForm::Count48},
    {199, "UDMA CRC Error Count", RawForm::Count48},
    {231, "SSD Life Left", RawForm::Count48},
    {232, "Available Reserved Space", RawForm::Count48},
    {233, "Media Wearout Indicator", RawForm::Count48},
    {241, "Total LBAs Written", RawForm::Count48},
    {242, "Total LBAs Read", RawForm::Count48},
};

constexpr bool ascending() {
  for (std::size_t i = 1; i < std::size(kKnownAttributes); ++i) {
    if (kKnownAttributes[i - 1].id >= kKnownAttributes[i].id) return false;
  }
  return true;
}
// knownAttribute searches the table by halves.
static_assert(ascending(), "the known attributes stand in ascending order of id, once each");

}  // namespace

const KnownAttribute* knownAttribute(uint8_t id) {
  const auto found =
      std::lower_bound(std::begin(kKnownAttributes), std::end(kKnownAttributes), id,
                       [](const KnownAttribute& row, uint8_t wanted) { return row.id < wanted; });
  return found != std::end(kKnownAttributes) && found->id == id ? found : nullptr;
}

}  // namespace orlo::features::ata_smart
