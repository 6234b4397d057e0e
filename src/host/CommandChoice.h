#pragma once

#include <memory>
#include <string>
#include <vector>

#include "plugins/plugin.cliframework/CommandSpec.h"
#include "plugins/plugin.cliframework/ParsedCommand.h"

namespace orlo::host {

// The command that a command line asks for, read against its command specification.
struct CommandChoice {
  std::shared_ptr<plugin::cli::CommandSpec> spec;  // null when the line is refused
  plugin::cli::ParsedCommand command;
  std::string error;  // why the line is refused
};

// Among the command specifications whose verb is `words[0]` (in any case), the first that
// the words fit. When none fits, the refusal is that of the first command that knew
// every word; or else, when several commands have the verb and none takes every
// property given, one that names each command and the properties it takes; or else that
// of the first command of the verb. `words` holds at least the verb.
CommandChoice chooseCommand(const plugin::cli::CommandSpecs& specs,
                            const std::vector<std::string>& words);

}  // namespace orlo::host
