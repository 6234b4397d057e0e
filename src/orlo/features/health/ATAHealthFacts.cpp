#include "orlo/features/health/ATAHealthFacts.h"

#include <string>
#include <vector>

#include "orlo/commands/ata/Layout.h"
#include "orlo/features/ata_smart/AtaLogs.h"
#include "orlo/features/ata_smart/DeviceStatistics.h"
#include "orlo/features/ata_smart/SmartAttributeTable.h"

namespace orlo::features::health {

namespace {

namespace layout = commands::ata::layout;
using ata_smart::SmartAttribute;

// The attributes whose raw values stand for the summary's facts, in the order in
// which they are preferred.
constexpr uint8_t kTemperature[] = {194, 190};
constexpr uint8_t kPowerOnHours[] = {9};
// Uncorrectable errors that the drive reported to the host (187), else the sectors
// that its offline scan could not correct (198): both count data the drive lost.
constexpr uint8_t kMediaErrors[] = {187, 198};
// Unexpected power loss (174) on SSDs, power-off retract (192), which SSDs use for
// unsafe shutdowns.
constexpr uint8_t kUnsafeShutdowns[] = {174, 192};
constexpr uint8_t kAvailableSpare = 232;

template <std::size_t N>
const SmartAttribute* first(const std::vector<SmartAttribute>& attributes,
                            const uint8_t (&ids)[N]) {
  for (const uint8_t id : ids) {
    for (const SmartAttribute& attribute : attributes) {
      if (attribute.id == id) return &attribute;
    }
  }
  return nullptr;
}

std::string attributeText(const SmartAttribute& attribute) {
  const ata_smart::KnownAttribute* known = ata_smart::knownAttribute(attribute.id);
  return "Attribute " + std::to_string(attribute.id) +
         (known != nullptr ? " " + std::string(known->name) : std::string());
}

}  // namespace

core::Status readAtaHealthFacts(const std::shared_ptr<core::Device>& device, HealthFacts& facts) {
  if (!device->supportsProtocol("ATA")) {
    return core::Status(35, "Device does not support this command set.");
  }
  ata_smart::SmartReadings smart;
  const core::Status status = ata_smart::readSmart(*device, smart);
  if (!core::succeeded(status)) return status;
  core::Payload statistics;
  if (!core::succeeded(ata_smart::readDeviceStatistics(*device, statistics))) {
    statistics = core::Payload();
  }

  facts = HealthFacts();
  facts.protocol = "ATA";
  if (smart.verdict == ata_smart::SmartVerdict::failed) {
    facts.reportsHealthy = false;
    facts.problems.push_back("SMART overall-health self-assessment: FAILED");
  }
  const std::vector<SmartAttribute> attributes =
      ata_smart::readSmartAttributes(smart.data, smart.thresholds);
  for (const SmartAttribute& attribute : attributes) {
    if (attribute.failingNow() && attribute.prefailure()) {
      facts.reportsHealthy = false;
      facts.problems.push_back(attributeText(attribute) + ": failing now");
    } else if (attribute.failingNow()) {
      facts.notes.push_back(attributeText(attribute) + ": failing now (advisory)");
    } else if (attribute.failedInThePast()) {
      facts.notes.push_back(attributeText(attribute) + ": failed in the past");
    }
  }

  if (const auto celsius = ata_smart::validStatistic(statistics, layout::kCurrentTemperature)) {
    facts.temperatureCelsius = static_cast<int8_t>(*celsius);
  } else if (const SmartAttribute* temperature = first(attributes, kTemperature)) {
    facts.temperatureCelsius = static_cast<int>(temperature->rawValue());
  }
  facts.powerOnHours = ata_smart::validStatistic(statistics, layout::kPowerOnHours);
  if (!facts.powerOnHours) {
    if (const SmartAttribute* hours = first(attributes, kPowerOnHours)) {
      facts.powerOnHours = hours->rawValue();
    }
  }
  if (const auto used = ata_smart::validStatistic(statistics, layout::kPercentageUsed)) {
    facts.percentageUsed = static_cast<unsigned>(*used);
  }
  if (const SmartAttribute* errors = first(attributes, kMediaErrors)) {
    facts.mediaErrors = std::to_string(errors->rawValue());
  }
  if (const SmartAttribute* shutdowns = first(attributes, kUnsafeShutdowns)) {
    facts.unsafeShutdowns = std::to_string(shutdowns->rawValue());
  }
  // Available Reserved Space counts down in its normalized value, against its threshold.
  for (const SmartAttribute& attribute : attributes) {
    if (attribute.id != kAvailableSpare) continue;
    facts.availableSparePercent = attribute.current;
    if (attribute.threshold) facts.availableSpareThresholdPercent = *attribute.threshold;
  }
  return core::Status::success();
}

}  // namespace orlo::features::health
