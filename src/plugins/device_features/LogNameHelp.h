#pragma once

#include <string>

#include "orlo/features/nvme_get_log/LogNames.h"

namespace plugin::cli {

// How the commands that read a log page describe LogName: the names that the
// toolkit has a class for.
const std::string logNameValues = orlo::features::nvme_get_log::logNames::CommandEffectsLog + "|" +
                                  orlo::features::nvme_get_log::logNames::MarketingDescription;
const std::string logNameHelp =
    "Log page, in any case: CommandEffectsLog (log 5, Commands Supported and Effects) or "
    "MarketingDescription (log 221).";

}  // namespace plugin::cli
