#pragma once

#include <string>

namespace orlo::tools::powershell::interruption {

// SIGINT, SIGTERM and SIGHUP end the program with status 1 after removing the
// temporary archive, so that an interrupted update leaves the archive as it
// was and nothing beside it. The death of the parent process counts as a
// hang-up: the update then no longer has anyone to report to.
//
// The signals are blocked in every thread and taken by one thread of their
// own, so that the clean-up is ordinary code and never races the rename that
// puts the new archive in place: once `commit` has been called, a signal no
// longer ends the run, which then reports what happened.
//
// `start` must run before any other thread is started.
void start();

// The archive being updated, which the message on a signal names.
void name(const std::string& archive);

// The temporary file to remove on a signal; an empty path: none.
void removeOnSignal(const std::string& temporary);
// Creates a file from the mkostemp `pattern`, which then holds its name, and names
// it for removal on a signal in the same step: a signal that comes meanwhile waits,
// and then finds the file. The descriptor, or -1 with errno set.
int createRemovedOnSignal(std::string& pattern);

// From here on the new archive is being put in place; signals are let pass.
void commit();

}  // namespace orlo::tools::powershell::interruption
