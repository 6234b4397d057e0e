#pragma once

namespace orlo::host {

// SIGTERM and SIGHUP sent to orlo while a command runs are passed on to the
// programs the command started (the archive update's shell and provider, which
// remove their temporary file and end with a failure that the command then
// reports), and orlo goes on to report it. A signal that finds no such program
// ends orlo as it would have without this.
void passTerminationToChildren();

}  // namespace orlo::host
