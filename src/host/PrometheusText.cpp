#include "host/PrometheusText.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace orlo::host {

namespace {

enum Family : std::size_t {
  up,
  info,
  healthy,
  temperature,
  powerOn,
  lifeUsed,
  mediaErrors,
  unsafeShutdowns,
  spare,
  spareThreshold,
  criticalWarning,
  familyCount,
};

struct FamilyText {
  const char* name;
  const char* type;
  const char* help;
};

constexpr std::array<FamilyText, familyCount> kFamilies = {{
    {"orlo_drive_up", "gauge", "Whether orlo read the drive's health (1) or could not (0)."},
    {"orlo_drive_info", "gauge", "The drive's model, firmware and protocol; always 1."},
    {"orlo_drive_healthy", "gauge",
     "Whether the drive reports itself healthy (1) or a failure or critical warning (0)."},
    {"orlo_drive_temperature_celsius", "gauge", "The drive's temperature."},
    {"orlo_drive_power_on_seconds_total", "counter", "The time the drive has been powered on."},
    {"orlo_drive_life_used_ratio", "gauge",
     "The part of the drive's rated life used (Percentage Used / 100); can exceed 1."},
    {"orlo_drive_media_errors_total", "counter",
     "Media and data integrity errors (ATA: reported uncorrectable errors)."},
    {"orlo_drive_unsafe_shutdowns_total", "counter",
     "Power losses without a shutdown notification to the drive."},
    {"orlo_drive_available_spare_ratio", "gauge", "The spare capacity left, 0 to 1."},
    {"orlo_drive_available_spare_threshold_ratio", "gauge",
     "The available spare below which the drive warns, 0 to 1."},
    {"orlo_drive_critical_warning", "gauge",
     "Whether the NVMe critical-warning bit named by warning is set (1) or not (0)."},
}};

// A label value between its double quotes: backslash, double quote and line feed
// escaped, as the format asks.
std::string escaped(const std::string& value) {
  std::string text;
  text.reserve(value.size());
  for (const char c : value) {
    if (c == '\\' || c == '"') {
      text += '\\';
      text += c;
    } else if (c == '\n') {
      text += "\\n";
    } else {
      text += c;
    }
  }
  return text;
}

std::string label(const char* name, const std::string& value) {
  return std::string(",") + name + "=\"" + escaped(value) + '"';
}

// A percentage as the exact decimal of its ratio: 7 gives "0.07", 120 gives "1.2".
std::string ratio(unsigned percent) {
  std::string text = std::to_string(percent / 100);
  const unsigned hundredths = percent % 100;
  if (hundredths != 0) {
    text += '.';
    text += static_cast<char>('0' + hundredths / 10);
    if (hundredths % 10 != 0) text += static_cast<char>('0' + hundredths % 10);
  }
  return text;
}

// Hours as seconds, exact for every 64-bit count: the product is worked out in decimal
// digits, least significant first.
std::string hoursInSeconds(uint64_t hours) {
  const std::string digits = std::to_string(hours);
  std::string product;
  uint64_t carry = 0;
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
    carry += static_cast<uint64_t>(*digit - '0') * 3600;
    product += static_cast<char>('0' + carry % 10);
    carry /= 10;
  }
  for (; carry != 0; carry /= 10) product += static_cast<char>('0' + carry % 10);
  while (product.size() > 1 && product.back() == '0') product.pop_back();
  std::reverse(product.begin(), product.end());
  return product;
}

}  // namespace

std::string prometheusText(const std::vector<DriveHealth>& drives) {
  std::array<std::string, familyCount> samples;
  for (const DriveHealth& drive : drives) {
    const std::string drivesLabels =
        "device=\"" + escaped(drive.device) + "\"" + label("serial", drive.serial);
    const auto add = [&](Family family, const std::string& value,
                         const std::string& moreLabels = "") {
      samples[family] += std::string(kFamilies[family].name) + '{' + drivesLabels + moreLabels +
                         "} " + value + '\n';
    };
    add(up, drive.facts ? "1" : "0");
    add(info, "1",
        label("model", drive.model) + label("firmware", drive.firmware) +
            label("protocol", drive.protocol));
    if (!drive.facts) continue;
    const features::health::HealthFacts& facts = *drive.facts;
    add(healthy, facts.reportsHealthy ? "1" : "0");
    if (facts.temperatureCelsius) add(temperature, std::to_string(*facts.temperatureCelsius));
    if (facts.powerOnHours) add(powerOn, hoursInSeconds(*facts.powerOnHours));
    if (facts.percentageUsed) add(lifeUsed, ratio(*facts.percentageUsed));
    if (facts.mediaErrors) add(mediaErrors, *facts.mediaErrors);
    if (facts.unsafeShutdowns) add(unsafeShutdowns, *facts.unsafeShutdowns);
    if (facts.availableSparePercent) add(spare, ratio(*facts.availableSparePercent));
    if (facts.availableSpareThresholdPercent) {
      add(spareThreshold, ratio(*facts.availableSpareThresholdPercent));
    }
    for (const auto& [name, set] : facts.criticalWarnings) {
      add(criticalWarning, set ? "1" : "0", label("warning", name));
    }
  }
  std::string text;
  for (std::size_t family = 0; family < familyCount; ++family) {
    if (samples[family].empty()) continue;
    const FamilyText& named = kFamilies[family];
    text += std::string("# HELP ") + named.name + ' ' + named.help + "\n# TYPE " + named.name +
            ' ' + named.type + '\n' + samples[family];
  }
  return text;
}

}  // namespace orlo::host
