#include "plugins/device_features/LogFilePlugin.h"

#include <memory>

#include "orlo/core/PropertyDescriptors.h"
#include "plugins/device_features/LogFileFeature.h"
#include "plugins/device_features/LogNameHelp.h"
#include "plugins/device_features/PropertyHelp.h"

namespace plugin::cli {

LogFilePlugin::LogFilePlugin()
    : SSDFeatureBase("LogFilePlugin", std::make_unique<LogFileFeature>()) {
  auto spec = std::make_shared<CommandSpec>(
      0, "LogPageFile", "Write a log page of an NVMe drive to a file, as the drive sent it.",
      verbs::dump);
  spec->addOption(helpOption);
  spec->targets.add(std::make_shared<CommandSpecPart>(ssdTargetRequiredValue));
  addFeatureProperties(*spec);
  describeProperty(*spec, orlo::core::properties::logName(), logNameValues, logNameHelp);
  describeProperty(*spec, orlo::core::properties::namespaceId(), "NSID", logNamespaceHelp);
  describeProperty(*spec, orlo::core::properties::file(), "path",
                   "File to write the log page to; an existing file is replaced.");
  commandSpecs.push_back(spec);
}

}  // namespace plugin::cli
