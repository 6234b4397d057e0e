#pragma once

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Status.h"
#include "orlo/features/IFeature.h"

namespace plugin::cli {

// "LogPageFile": one NVMe log page, read by the class that the toolkit's log
// factory table holds for LogName, and written as it came from the drive to File.
// File also tells the log page not to insist on its own UUID index.
class LogFileFeature : public orlo::features::IFeature {
 public:
  orlo::core::Status run() override;
  // LogName and File.
  orlo::core::AttributeCollection requiredAttributes() override;
  orlo::core::AttributeCollection optionalAttributes() override;
};

}  // namespace plugin::cli
