#pragma once

#include <optional>
#include <string>
#include <vector>

#include "orlo/features/health/HealthFacts.h"

namespace orlo::host {

// One drive as the metrics show it: where it is, what it calls itself, and what it says
// of its health, which is absent when the drive could not be opened or asked.
struct DriveHealth {
  std::string device;    // the node ("/dev/nvme0") or the device image's directory
  std::string protocol;  // "NVMe" or "ATA"
  std::string model;
  std::string serial;
  std::string firmware;
  std::optional<orlo::features::health::HealthFacts> facts;
};

// The drives' health in the Prometheus text exposition format 0.0.4, for a scrape or
// node_exporter's textfile collector. Each family has its HELP and TYPE lines and then
// its samples, one a drive, in the order of `drives`; every sample is labelled with the
// drive's `device` and `serial`. Units are the base units of Prometheus' conventions:
// seconds, degrees Celsius, ratios where the drive reports percentages, `_total` for what
// only grows. 128-bit counters are written with all their digits. A fact the drive does
// not report has no sample, and a family without samples is left out:
//   orlo_drive_up                       1, or 0 when the drive could not be read (then
//                                       only it and the info follow for that drive)
//   orlo_drive_info                     1, labelled with model, firmware and protocol
//   orlo_drive_healthy                  1, or 0 when the drive reports a failure or a
//                                       critical warning
//   orlo_drive_temperature_celsius      gauge
//   orlo_drive_power_on_seconds_total   counter
//   orlo_drive_life_used_ratio          gauge, Percentage Used / 100 (can pass 1)
//   orlo_drive_media_errors_total       counter
//   orlo_drive_unsafe_shutdowns_total   counter
//   orlo_drive_available_spare_ratio    gauge, with ..._threshold_ratio beside it
//   orlo_drive_critical_warning         1 or 0 for each NVMe bit, labelled `warning`
std::string prometheusText(const std::vector<DriveHealth>& drives);

}  // namespace orlo::host
