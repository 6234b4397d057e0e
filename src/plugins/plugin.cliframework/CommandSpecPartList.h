#pragma once

#include "plugins/plugin.cliframework/CommandSpecPart.h"
#include "plugins/plugin.cliframework/NamedList.h"

namespace plugin::cli {

// The options, targets or properties of one command, in order of addition.
using CommandSpecPartList = NamedList<CommandSpecPart>;

}  // namespace plugin::cli
