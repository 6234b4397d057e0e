#include "plugins/update_ir/UpdateIRPlugin.h"

#include <memory>

#include "plugins/update_ir/UpdateIRFeature.h"

namespace plugin::cli {

UpdateIRPlugin::UpdateIRPlugin()
    : SSDFeatureBase("UpdateIRPlugin", std::make_unique<UpdateIRFeature>()) {
  auto spec = std::make_shared<CommandSpec>(
      0, "UpdateIncidentReport", "Update existing IR zip file with new source file", verbs::update);
  spec->addOption(helpOption);
  spec->addOption(sourcePartRequired);
  spec->addOption(destinationPartRequired);
  spec->addOption(CommandSpecPart("-v", false, "", false, "Display verbose data", false, ""));
  addFeatureProperties(*spec);
  commandSpecs.push_back(spec);
}

}  // namespace plugin::cli
