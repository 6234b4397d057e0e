#pragma once

#include <optional>
#include <string>

#include "plugins/plugin.cliframework/ParsedCommand.h"

namespace orlo::host {

// The archive update moves a "-destination" whose name does not end in ".zip" (in any
// case) to that name with ".zip" appended for the length of its run, replacing whatever
// stands there, and hands it to Compress-Archive, which opens it. Gives the refusal,
// saying what would have happened, for a "-destination" that exists but is not a
// regular file once links are followed (a directory, a FIFO, which would block the
// open, a socket, a device), or whose move would replace an existing file. A
// destination that does not exist is left for the update to report.
std::optional<std::string> findUnsafeDestination(const plugin::cli::ParsedCommand& command);

// Whether findUnsafeDestination looks at the option of this name.
bool isGuardedDestination(const std::string& name);

// What findUnsafeDestination refuses and why, for the help: lines without indent.
extern const char* const destinationRules;

}  // namespace orlo::host
