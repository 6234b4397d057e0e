#pragma once

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Status.h"
#include "plugins/device_features/TreeFeature.h"

namespace plugin::cli {

// "HealthSummary": what an NVMe or ATA drive says of its own health, in one shape for
// both, with the drive's verdict beside the tree.
class HealthFeature : public TreeFeature {
 public:
  orlo::core::Status run() override;
  orlo::core::AttributeCollection requiredAttributes() override;
  orlo::core::AttributeCollection optionalAttributes() override;

  // The verdict of the last successful run.
  bool driveHealthy = true;
};

}  // namespace plugin::cli
