#include "plugins/device_features/IdentifyPlugin.h"

#include <memory>

#include "orlo/core/PropertyDescriptors.h"
#include "plugins/device_features/IdentifyFeature.h"
#include "plugins/device_features/PropertyHelp.h"

namespace plugin::cli {

IdentifyPlugin::IdentifyPlugin()
    : TreePlugin("IdentifyPlugin", std::make_unique<IdentifyFeature>()) {
  auto spec = std::make_shared<CommandSpec>(
      0, "Identify", "Show an Identify structure of a drive, decoded.", verbs::show);
  spec->addOption(helpOption);
  spec->targets.add(std::make_shared<CommandSpecPart>(ssdTargetRequiredValue));
  addFeatureProperties(*spec);
  describeProperty(*spec, orlo::core::properties::controllerNamespaceStructure(), "CNS",
                   "NVMe structure, decimal or 0x hex (default 0): 0 namespace, 1 controller, "
                   "2 active namespace IDs, 3 namespace descriptors, 16 allocated namespace IDs, "
                   "17 allocated namespace, 18 attached controllers, 19 all controllers, "
                   "20 primary controller capabilities, 21 secondary controllers, "
                   "22 namespace granularity, 23 UUID list, 26 namespace IDs of a command set, "
                   "28 I/O command sets. An ATA drive shows IDENTIFY DEVICE only when neither "
                   "this nor NamespaceId is given: with either, whatever its value, it answers "
                   "\"The selected drive does not support this feature.\" (exit code 0).");
  describeProperty(*spec, orlo::core::properties::namespaceId(), "NSID",
                   "NVMe namespace, decimal or 0x hex (default: the namespace of the node, else "
                   "all namespaces, 0xFFFFFFFF; 0 for the namespace lists). Not for an ATA drive: "
                   "see ControllerNamespaceStructure.");
  commandSpecs.push_back(spec);
}

}  // namespace plugin::cli
