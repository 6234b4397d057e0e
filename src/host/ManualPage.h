#pragma once

#include <string>

#include "plugins/plugin.cliframework/CommandSpec.h"

namespace orlo::host {

// The manual page orlo(1) in roff's man macros, written from what `orlo help` shows:
// its usage lines, the host's flags, and for each command its description, synopsis,
// options, targets, properties and the paths refused for it. The places of an
// installation are named below PREFIX, the folder above the program's own, as the
// program finds them; `dataFolder` is where the samples and device images lie below
// PREFIX ("share/orlo").
std::string writeManualPage(const plugin::cli::CommandSpecs& specs, const std::string& dataFolder);

// `text` as roff reads it literally: a backslash stays one, a "-" is a minus sign (so
// that an option can be searched for and copied), and a line that starts with "." or
// "'" is not taken for a request.
std::string roffText(const std::string& text);

}  // namespace orlo::host
