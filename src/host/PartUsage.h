#pragma once

#include <string>

#include "plugins/plugin.cliframework/CommandSpecPart.h"

namespace orlo::host {

// How a part is written on the command line: "-source <path>", "-v" or "Name=<name>".
std::string usageOf(const plugin::cli::CommandSpecPart& part);

// The usage behind what the part is: "option -source <path>", "target -ssd <...>" or
// "property Name=<name>".
std::string describePart(const plugin::cli::CommandSpecPart& part);

}  // namespace orlo::host
