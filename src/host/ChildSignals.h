#pragma once

namespace orlo::host {

// SIGTERM and SIGHUP sent to orlo while a command runs are passed on to the
// programs the command started, the deepest of them (the archive update's provider,
// which removes its temporary file and ends with a failure that its shell and then
// the command report), and orlo goes on to report it once they are done. A signal
// that finds no such program ends orlo as it would have without this.
void passTerminationToChildren();

}  // namespace orlo::host
