#include "plugins/device_features/LogPagePlugin.h"

#include <memory>

#include "orlo/core/PropertyDescriptors.h"
#include "plugins/device_features/LogNameHelp.h"
#include "plugins/device_features/LogPageFeature.h"
#include "plugins/device_features/PropertyHelp.h"

namespace plugin::cli {

LogPagePlugin::LogPagePlugin() : TreePlugin("LogPagePlugin", std::make_unique<LogPageFeature>()) {
  auto spec = std::make_shared<CommandSpec>(
      0, "LogPage", "Show a log page of an NVMe or ATA drive, decoded.", verbs::show);
  spec->addOption(helpOption);
  spec->targets.add(std::make_shared<CommandSpecPart>(ssdTargetRequiredValue));
  addFeatureProperties(*spec);
  describeProperty(*spec, orlo::core::properties::logName(), logPageNameValues, logPageNameHelp);
  describeProperty(*spec, orlo::core::properties::namespaceId(), "NSID", logNamespaceHelp);
  commandSpecs.push_back(spec);
}

}  // namespace plugin::cli
