#include "plugins/device_features/TreePlugin.h"

#include <utility>

#include "plugins/plugin.cliframework/XmlTreeResult.h"

namespace plugin::cli {

TreePlugin::TreePlugin(std::string name, std::unique_ptr<TreeFeature> feature)
    : SSDFeatureBase(std::move(name), std::move(feature)) {}

std::shared_ptr<ResultBase> TreePlugin::reportStatus(const orlo::core::Status& status) {
  // The constructor takes nothing but a TreeFeature.
  auto& treeFeature = static_cast<TreeFeature&>(*feature);
  if (!orlo::core::succeeded(status) || treeFeature.tree == nullptr) {
    return SSDFeatureBase::reportStatus(status);
  }
  return std::make_shared<XmlTreeResult>(std::move(treeFeature.tree));
}

}  // namespace plugin::cli
