#include "orlo/features/health/HealthSummary.h"

#include <string>
#include <utility>

#include "orlo/core/xml/XmlProperty.h"

namespace orlo::features::health {

namespace {

using core::xml::Keyed;

const char* const kNotReported = "Not reported";

template <typename Value, typename Show>
std::string shown(const std::optional<Value>& value, Show show) {
  return value ? show(*value) : kNotReported;
}

std::string percent(unsigned value) {
  return std::to_string(value) + "%";
}

// Appends the field, keyed as `keyed` says.
void addField(core::xml::XmlObject& parent, std::string name, std::string value, Keyed keyed) {
  auto property = std::make_unique<core::xml::XmlProperty>();
  property->attribute("name") = std::move(name);
  property->attribute("value") = std::move(value);
  property->keyed() = std::move(keyed);
  parent.properties().push_back(std::move(property));
}

// A fact the drive reports as a number under `key`; one it does not report has no key.
template <typename Value>
Keyed number(const char* key, const std::optional<Value>& value) {
  return value ? Keyed::number(key, *value) : Keyed{};
}

Keyed text(const char* key, const std::optional<std::string>& value) {
  return value ? Keyed::text(key, *value) : Keyed{};
}

// Degrees Celsius, which may be below zero, in one unit for NVMe and ATA drives alike.
Keyed celsius(const std::optional<int>& degrees) {
  if (!degrees) return {};
  Keyed keyed = Keyed::number("temperature_celsius", 0);
  keyed.value = std::to_string(*degrees);
  return keyed;
}

}  // namespace

std::unique_ptr<core::xml::XmlObject> summaryTree(const HealthFacts& facts) {
  auto root = std::make_unique<core::xml::XmlObject>();
  root->attribute("name") = "Health Summary";
  root->attribute("key") = "Health Summary";
  const auto add = [&](const char* name, std::string value, Keyed keyed) {
    addField(*root, name, std::move(value), std::move(keyed));
  };
  add("Protocol", facts.protocol, Keyed::text("protocol", facts.protocol));
  const char* verdict = facts.reportsHealthy ? "Healthy" : "Failing";
  add("Verdict", verdict, Keyed::text("verdict", verdict));
  for (const std::string& problem : facts.problems) {
    Keyed keyed = Keyed::text("problems", problem);
    keyed.entry = true;
    add("Problem", problem, std::move(keyed));
  }
  for (const std::string& note : facts.notes) {
    Keyed keyed = Keyed::text("notes", note);
    keyed.entry = true;
    add("Note", note, std::move(keyed));
  }
  add("Temperature",
      shown(facts.temperatureCelsius, [](int c) { return std::to_string(c) + " \u00B0C"; }),
      celsius(facts.temperatureCelsius));
  add("Power-On Hours",
      shown(facts.powerOnHours, [](uint64_t hours) { return std::to_string(hours); }),
      number("power_on_hours", facts.powerOnHours));
  add("Percentage Used", shown(facts.percentageUsed, percent),
      number("percent_used", facts.percentageUsed));
  const auto asIs = [](const std::string& value) { return value; };
  add("Media and Data Integrity Errors", shown(facts.mediaErrors, asIs),
      text("media_errors", facts.mediaErrors));
  add("Unsafe Shutdowns", shown(facts.unsafeShutdowns, asIs),
      text("unsafe_shutdowns", facts.unsafeShutdowns));
  add("Available Spare", shown(facts.availableSparePercent, percent),
      number("avail_spare", facts.availableSparePercent));
  add("Available Spare Threshold", shown(facts.availableSpareThresholdPercent, percent),
      number("spare_thresh", facts.availableSpareThresholdPercent));
  if (!facts.criticalWarnings.empty()) {
    auto warnings = std::make_unique<core::xml::XmlObject>();
    warnings->keyed() = Keyed::object("critical_warnings");
    for (const auto& [name, set] : facts.criticalWarnings) {
      addField(*warnings, name, set ? "Yes" : "No", Keyed::number(core::xml::keyOf(name), set));
    }
    root->addObject("Critical Warnings", std::move(warnings));
  }
  return root;
}

}  // namespace orlo::features::health
