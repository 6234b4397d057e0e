#include "plugins/device_features/HealthFeature.h"

#include "orlo/features/health/DriveHealthFacts.h"
#include "orlo/features/health/HealthSummary.h"

namespace plugin::cli {

namespace health = orlo::features::health;

orlo::core::AttributeCollection HealthFeature::requiredAttributes() {
  return {};
}

orlo::core::AttributeCollection HealthFeature::optionalAttributes() {
  return {};
}

orlo::core::Status HealthFeature::run() {
  tree.reset();
  driveHealthy = true;
  orlo::core::Status status = check();
  if (!orlo::core::succeeded(status)) return status;
  health::HealthFacts facts;
  status = health::readHealthFacts(device, facts);
  if (!orlo::core::succeeded(status)) return status;
  driveHealthy = facts.reportsHealthy;
  tree = health::summaryTree(facts);
  return status;
}

}  // namespace plugin::cli
