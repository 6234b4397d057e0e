#pragma once

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Status.h"
#include "plugins/device_features/TreeFeature.h"

namespace plugin::cli {

// "LogPage": one log page, read and decoded: of an NVMe drive by the class that the
// toolkit's log factory table holds for LogName, of an ATA drive by the ATA logs'
// own decoders (SMART attributes, Device Statistics).
class LogPageFeature : public TreeFeature {
 public:
  orlo::core::Status run() override;
  // LogName.
  orlo::core::AttributeCollection requiredAttributes() override;
  orlo::core::AttributeCollection optionalAttributes() override;
};

}  // namespace plugin::cli
