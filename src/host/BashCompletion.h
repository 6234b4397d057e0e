#pragma once

#include <string>

#include "plugins/plugin.cliframework/CommandSpec.h"

namespace orlo::host {

// A bash completion script for orlo, from the commands that `orlo help` shows: the
// verbs and "help" first, then the options, targets and properties of the commands of
// the verb given (those not given yet), and the host's flags anywhere. After a word
// that takes a value it offers what the command names: the choices of a value
// such as <text|json|xml|csv>, files for a <path>, folders for a <directory>, and for
// -ssd the index, path and serial number of each drive that the completed orlo itself
// lists (`orlo show -ssd`), with folders for device images. `orlo help` takes verbs,
// command names and Verb= and Name=.
std::string writeBashCompletion(const plugin::cli::CommandSpecs& specs);

}  // namespace orlo::host
