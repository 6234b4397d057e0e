#pragma once

#include <spawn.h>
#include <sys/types.h>

namespace orlo::host {

// Lets a host command that leaves files behind while it works (a staging folder) stop
// cleanly. While one lives, the first SIGINT, SIGTERM or SIGHUP does not end orlo: it is
// noted, and passed on to the program started through `spawn`, if one runs; the command
// looks at `caught` between its steps, removes what it made and then calls
// `endIfCaught`, which ends orlo the way the signal would have. A second signal ends orlo
// at once, as one does without this. A signal that orlo was started to ignore stays
// ignored. One object at a time.
class StopSignals {
 public:
  StopSignals();
  ~StopSignals();
  StopSignals(const StopSignals&) = delete;
  StopSignals& operator=(const StopSignals&) = delete;

  // The signal caught, or 0.
  int caught() const;

  // posix_spawn with the signals held back until the child is known, so that none is
  // lost between its start and its registration; the child starts with them at their
  // default actions and unblocked. Gives posix_spawn's error number, or 0.
  int spawn(pid_t& child, const char* program, const posix_spawn_file_actions_t* actions,
            char* const argv[]);
  // Waits for the child that spawn started and gives its wait status; a signal caught
  // meanwhile is passed on to it and the wait goes on until it has ended.
  int wait(pid_t child);

  // Ends orlo by the signal caught, if one was, with the signals' actions as they were.
  void endIfCaught();
};

}  // namespace orlo::host
