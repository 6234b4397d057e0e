#pragma once

#include <memory>
#include <string>

#include "plugins/device_features/TreeFeature.h"
#include "plugins/plugin.cliframework/SSDFeatureBase.h"

namespace plugin::cli {

// A plug-in object whose command answers with its feature's tree: a successful
// run gives an XmlTreeResult, which the host renders in the format asked for; a
// failed one gives the framework's status result.
class TreePlugin : public SSDFeatureBase {
 public:
  TreePlugin(std::string name, std::unique_ptr<TreeFeature> feature);
  ~TreePlugin() override = default;

  std::shared_ptr<ResultBase> reportStatus(const orlo::core::Status& status) override;
};

}  // namespace plugin::cli
