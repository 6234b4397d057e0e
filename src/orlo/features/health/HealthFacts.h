#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// What a drive says about its own health, in one shape for NVMe and ATA: the facts that
// the health summary shows, each absent where the drive does not report it. Counters
// that an NVMe drive keeps in 128 bits are exact decimal texts.
namespace orlo::features::health {

struct HealthFacts {
  std::string protocol;  // "NVMe" or "ATA"

  // The drive's own verdict: false when it reports a failure (ATA SMART RETURN STATUS,
  // an attribute failing now) or an NVMe critical warning.
  bool reportsHealthy = true;
  // Why not, one text each: the names of the NVMe critical-warning bits that are set,
  // "SMART overall-health self-assessment: FAILED", "Attribute 5 Reallocated Sector
  // Count: failing now".
  std::vector<std::string> problems;
  // Notes that do not make the drive unhealthy, such as an ATA attribute that failed in
  // the past.
  std::vector<std::string> notes;

  std::optional<int> temperatureCelsius;
  std::optional<uint64_t> powerOnHours;
  std::optional<unsigned> percentageUsed;  // NVMe Percentage Used, ATA endurance indicator
  std::optional<std::string> mediaErrors;  // media and data integrity errors
  std::optional<std::string> unsafeShutdowns;
  std::optional<unsigned> availableSparePercent;
  std::optional<unsigned> availableSpareThresholdPercent;
  // Every NVMe critical-warning bit by name with whether it is set; empty for ATA.
  std::vector<std::pair<std::string, bool>> criticalWarnings;
};

}  // namespace orlo::features::health
