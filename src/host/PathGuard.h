#pragma once

#include <optional>
#include <string>

#include "plugins/plugin.cliframework/ParsedCommand.h"

namespace orlo::host {

// The archive update hands "-source" and "-destination" to /bin/sh unquoted, so a
// path could run a command of its own. Gives the refusal for the first of these
// options whose value holds a blank, a control character or any of
// ; & | $ ` < > ( ) * ? [ ] { } ~ # " ' \ .
std::optional<std::string> findUnsafePath(const plugin::cli::ParsedCommand& command);

}  // namespace orlo::host
