#pragma once

#include <memory>

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Device.h"
#include "orlo/core/Status.h"
#include "orlo/features/nvme_get_log/NVMeGetLog.h"

namespace plugin::cli {

// The log-page feature for the attribute LogName, made through the toolkit's table
// of log factories for `device`, with a copy of `attributes`. A name without a class
// gives unknownLogName with the names that have one.
orlo::core::Status makeNamedLog(const orlo::core::AttributeCollection& attributes,
                                const std::shared_ptr<orlo::core::Device>& device,
                                std::unique_ptr<orlo::features::nvme_get_log::NVMeGetLog>& log);

}  // namespace plugin::cli
