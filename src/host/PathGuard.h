#pragma once

#include <optional>
#include <string>

#include "plugins/plugin.cliframework/ParsedCommand.h"

namespace orlo::host {

// The archive update hands "-source" and "-destination" to /bin/sh unquoted, so a
// path could run a command of its own, and the shell passes them on to
// Compress-Archive, which splits a path list at a comma. Gives the refusal for the
// first of these options whose value holds a blank, a control character, a comma or
// any of ; & | $ ` < > ( ) * ? [ ] { } ~ # " ' \ .
std::optional<std::string> findUnsafePath(const plugin::cli::ParsedCommand& command);

// Whether findUnsafePath looks at the option of this name.
bool isGuardedPath(const std::string& name);

// What findUnsafePath refuses and why, for the help: lines without indent.
extern const char* const pathRules;

}  // namespace orlo::host
