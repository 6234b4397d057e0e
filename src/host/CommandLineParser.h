#pragma once

#include <string>
#include <vector>

#include "plugins/plugin.cliframework/CommandSpec.h"
#include "plugins/plugin.cliframework/ParsedCommand.h"

namespace orlo::host {

// A command line read against one command specification.
struct ParseOutcome {
  plugin::cli::ParsedCommand command;
  std::string error;           // empty when the words fit the command specification
  bool knowsEveryWord = true;  // false when a word is not the command's at all
};

// Reads `words`, the verb and then `-option [value]` and `Name=Value` words, against
// `spec`. Options and targets are known by their name or short name in any case and
// are recorded under their name; a part that requires a value takes the next word,
// one with a value name but no such need takes the next word if it is a plain word.
// A word that starts with "-" is never a value. Every required part must be there.
ParseOutcome parseCommandLine(const plugin::cli::CommandSpec& spec,
                              const std::vector<std::string>& words);

}  // namespace orlo::host
