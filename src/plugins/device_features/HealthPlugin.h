#pragma once

#include <memory>

#include "plugins/device_features/TreePlugin.h"

namespace plugin::cli {

// The plug-in object of "HealthSummary" (verb "health"), served by a HealthFeature. A
// successful run answers with the summary and the drive's verdict.
class HealthPlugin : public TreePlugin {
 public:
  HealthPlugin();
  ~HealthPlugin() override = default;

  std::shared_ptr<ResultBase> reportStatus(const orlo::core::Status& status) override;
};

}  // namespace plugin::cli
