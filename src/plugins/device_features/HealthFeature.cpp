#include "plugins/device_features/HealthFeature.h"

#include "orlo/core/OwnStatuses.h"
#include "orlo/features/health/ATAHealthFacts.h"
#include "orlo/features/health/HealthSummary.h"
#include "orlo/features/health/NVMeHealthFacts.h"

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
  if (device->supportsProtocol("NVME")) {
    status = health::readNvmeHealthFacts(device, facts);
  } else if (device->supportsProtocol("ATA")) {
    status = health::readAtaHealthFacts(device, facts);
  } else {
    status = orlo::core::Status(35, "Device does not support this command set.");
  }
  if (!orlo::core::succeeded(status)) return status;
  driveHealthy = facts.reportsHealthy;
  tree = health::summaryTree(facts);
  return status;
}

}  // namespace plugin::cli
