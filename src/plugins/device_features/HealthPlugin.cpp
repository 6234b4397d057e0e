#include "plugins/device_features/HealthPlugin.h"

#include <memory>

#include "plugins/device_features/HealthFeature.h"
#include "plugins/plugin.cliframework/VerdictTreeResult.h"

namespace plugin::cli {

namespace {

const std::string kHealthVerb = "health";

}  // namespace

HealthPlugin::HealthPlugin() : TreePlugin("HealthPlugin", std::make_unique<HealthFeature>()) {
  auto spec = std::make_shared<CommandSpec>(
      0, "HealthSummary",
      "Show a drive's health as the drive reports it, in one form for NVMe and SATA: "
      "verdict, temperature, power-on hours, wear, media errors, unsafe shutdowns, spare "
      "and critical warnings. Exit code 4 when the drive reports a failure or a critical "
      "warning.",
      kHealthVerb);
  spec->addOption(helpOption);
  spec->targets.add(std::make_shared<CommandSpecPart>(ssdTargetRequiredValue));
  commandSpecs.push_back(spec);
}

std::shared_ptr<ResultBase> HealthPlugin::reportStatus(const orlo::core::Status& status) {
  // The constructor takes nothing but a HealthFeature.
  auto& health = static_cast<HealthFeature&>(*feature);
  if (!orlo::core::succeeded(status) || health.tree == nullptr) {
    return SSDFeatureBase::reportStatus(status);
  }
  return std::make_shared<VerdictTreeResult>(std::move(health.tree), health.driveHealthy);
}

}  // namespace plugin::cli
