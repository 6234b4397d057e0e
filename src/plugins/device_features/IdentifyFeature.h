#pragma once

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Status.h"
#include "plugins/device_features/TreeFeature.h"

namespace plugin::cli {

// "Identify": one Identify structure of the drive, decoded. The Identify front end
// picks the protocol: an ATA drive answers IDENTIFY DEVICE, an NVMe drive the
// structure that ControllerNamespaceStructure names, for NamespaceId.
class IdentifyFeature : public TreeFeature {
 public:
  orlo::core::Status run() override;
  orlo::core::AttributeCollection requiredAttributes() override;
  // ControllerNamespaceStructure and NamespaceId.
  orlo::core::AttributeCollection optionalAttributes() override;
};

}  // namespace plugin::cli
