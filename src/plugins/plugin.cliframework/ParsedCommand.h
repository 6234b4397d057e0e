#pragma once

#include <string>

#include "plugins/plugin.cliframework/NamedList.h"
#include "plugins/plugin.cliframework/ParsedArgument.h"

namespace plugin::cli {

using ParsedArgumentList = NamedList<ParsedArgument>;

// The host's record of one command line. The parser appends to the three lists
// in the order of the command line; a name may come twice there.
struct ParsedCommand {
  std::string verb;     // the host's own
  std::string command;  // the host's own
  ParsedArgumentList options;
  ParsedArgumentList targets;
  ParsedArgumentList properties;
};

}  // namespace plugin::cli
