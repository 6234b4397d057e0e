#pragma once

#include "plugins/plugin.cliframework/ResultBase.h"

namespace orlo::host {

// What `orlo` gives back to its caller.
enum class ExitCode : int {
  success = 0,         // the command's result has type 0, or help was shown
  commandFailed = 1,   // the command ran and its result has another type, or the
                       // standard output could not be written
  refused = 2,         // the command line was refused before anything ran
  pluginFailed = 3,    // a plug-in could not be loaded, or an exception left it
  driveUnhealthy = 4,  // the command ran, and the drive reports a failure or a critical
                       // warning of its own
};

// success for a result of type 0, commandFailed otherwise; driveUnhealthy for a result
// that carries a drive's verdict against itself. A result that carries no type counts as
// type 0.
ExitCode exitCodeFor(const plugin::cli::ResultBase& result);

}  // namespace orlo::host
