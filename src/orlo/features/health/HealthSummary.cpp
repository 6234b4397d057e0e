#include "orlo/features/health/HealthSummary.h"

#include <string>
#include <utility>

#include "orlo/core/xml/XmlProperty.h"

namespace orlo::features::health {

namespace {

const char* const kNotReported = "Not reported";

template <typename Value, typename Show>
std::string shown(const std::optional<Value>& value, Show show) {
  return value ? show(*value) : kNotReported;
}

std::string spare(const HealthFacts& facts) {
  if (!facts.availableSparePercent) return kNotReported;
  std::string text = std::to_string(*facts.availableSparePercent) + "%";
  if (facts.availableSpareThresholdPercent) {
    text += " (threshold " + std::to_string(*facts.availableSpareThresholdPercent) + "%)";
  }
  return text;
}

void addField(core::xml::XmlObject& parent, std::string name, std::string value) {
  auto property = std::make_unique<core::xml::XmlProperty>();
  property->attribute("name") = std::move(name);
  property->attribute("value") = std::move(value);
  parent.properties().push_back(std::move(property));
}

}  // namespace

std::unique_ptr<core::xml::XmlObject> summaryTree(const HealthFacts& facts) {
  auto root = std::make_unique<core::xml::XmlObject>();
  root->attribute("name") = "Health Summary";
  root->attribute("key") = "Health Summary";
  const auto add = [&](const char* name, std::string value) {
    addField(*root, name, std::move(value));
  };
  add("Protocol", facts.protocol);
  add("Verdict", facts.reportsHealthy ? "Healthy" : "Failing");
  for (const std::string& problem : facts.problems) add("Problem", problem);
  for (const std::string& note : facts.notes) add("Note", note);
  add("Temperature",
      shown(facts.temperatureCelsius, [](int c) { return std::to_string(c) + " \u00B0C"; }));
  add("Power-On Hours",
      shown(facts.powerOnHours, [](uint64_t hours) { return std::to_string(hours); }));
  add("Percentage Used",
      shown(facts.percentageUsed, [](unsigned used) { return std::to_string(used) + "%"; }));
  const auto text = [](const std::string& value) { return value; };
  add("Media and Data Integrity Errors", shown(facts.mediaErrors, text));
  add("Unsafe Shutdowns", shown(facts.unsafeShutdowns, text));
  add("Available Spare", spare(facts));
  if (!facts.criticalWarnings.empty()) {
    auto warnings = std::make_unique<core::xml::XmlObject>();
    for (const auto& [name, set] : facts.criticalWarnings) {
      addField(*warnings, name, set ? "Yes" : "No");
    }
    root->addObject("Critical Warnings", std::move(warnings));
  }
  return root;
}

}  // namespace orlo::features::health
