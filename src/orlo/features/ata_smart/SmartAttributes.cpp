#include "orlo/features/ata_smart/SmartAttributes.h"

#include "orlo/commands/ata/Completion.h"
#include "orlo/commands/ata/Layout.h"
#include "orlo/core/LittleEndian.h"
#include "orlo/features/ata_smart/SmartAttributeTable.h"

namespace orlo::features::ata_smart {

namespace layout = commands::ata::layout;

namespace {

const uint8_t* entry(const core::Payload& sector, uint32_t index) {
  return sector.data() + layout::kSmartEntriesOffset + index * layout::kSmartEntrySize;
}

bool wholeSector(const core::Payload& sector) {
  return sector.data() != nullptr && sector.size() >= layout::kSectorSize;
}

std::optional<uint8_t> thresholdOf(const core::Payload& thresholds, uint8_t id) {
  if (!wholeSector(thresholds)) return std::nullopt;
  for (uint32_t index = 0; index < layout::kSmartEntryCount; ++index) {
    const uint8_t* row = entry(thresholds, index);
    if (row[layout::kSmartEntryId] == id) return row[layout::kSmartEntryThreshold];
  }
  return std::nullopt;
}

}  // namespace

bool SmartAttribute::prefailure() const {
  return (flags & kPrefailureFlag) != 0;
}

uint64_t SmartAttribute::rawValue() const {
  const KnownAttribute* known = knownAttribute(id);
  const RawForm form = known != nullptr ? known->form : RawForm::Count48;
  const unsigned bytes = form == RawForm::Celsius ? 1 : form == RawForm::Count32 ? 4 : 6;
  return core::le::read(raw.data(), bytes);
}

bool SmartAttribute::failingNow() const {
  return threshold.value_or(0) != 0 && current <= *threshold;
}

bool SmartAttribute::failedInThePast() const {
  return !failingNow() && threshold.value_or(0) != 0 && worst <= *threshold;
}

std::vector<SmartAttribute> readSmartAttributes(const core::Payload& data,
                                                const core::Payload& thresholds) {
  std::vector<SmartAttribute> attributes;
  if (!wholeSector(data)) return attributes;
  for (uint32_t index = 0; index < layout::kSmartEntryCount; ++index) {
    const uint8_t* row = entry(data, index);
    SmartAttribute attribute;
    attribute.id = row[layout::kSmartEntryId];
    if (attribute.id == 0) continue;
    attribute.flags = core::le::read16(row + layout::kSmartEntryFlags);
    attribute.current = row[layout::kSmartEntryCurrent];
    attribute.worst = row[layout::kSmartEntryWorst];
    for (uint32_t at = 0; at < layout::kSmartEntryRawBytes; ++at) {
      attribute.raw[at] = row[layout::kSmartEntryRaw + at];
    }
    attribute.threshold = thresholdOf(thresholds, attribute.id);
    attributes.push_back(attribute);
  }
  return attributes;
}

SmartVerdict smartVerdict(const core::ProtocolResult* completion) {
  const auto* ata = dynamic_cast<const commands::ata::Completion*>(completion);
  if (ata == nullptr) return SmartVerdict::unknown;
  const uint8_t mid = ata->registers.lbaMid;
  const uint8_t high = ata->registers.lbaHigh;
  if (mid == layout::kSmartSignatureMid && high == layout::kSmartSignatureHigh) {
    return SmartVerdict::passed;
  }
  if (mid == layout::kSmartExceededMid && high == layout::kSmartExceededHigh) {
    return SmartVerdict::failed;
  }
  return SmartVerdict::unknown;
}

}  // namespace orlo::features::ata_smart
