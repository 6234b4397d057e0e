#pragma once

#include "CompressArchiveRequest.h"
#include "Destination.h"
#include "Error.h"

namespace orlo::tools::powershell {

// The lock that serialises the updates of one archive, so that two runs on it
// at once both land: the second waits, then reads the archive the first one
// wrote. An existing archive is locked through its own file (flock), which
// leaves nothing beside it and is released by the kernel when a run dies
// however it dies. Because an update renames a new file over the old one, a
// run that waited may hold the lock of a file that is no longer the archive:
// it then starts over on the file the name leads to now. An archive that does
// not exist yet is locked through its folder until it has been written.
class ArchiveLock {
 public:
  ArchiveLock() = default;
  ~ArchiveLock();
  ArchiveLock(const ArchiveLock&) = delete;
  ArchiveLock& operator=(const ArchiveLock&) = delete;

  // Resolves the destination into `target` and locks it, then removes what
  // runs on it that were killed left behind.
  Error acquire(const CompressArchiveRequest& request, ArchiveTarget& target);

 private:
  int descriptor_ = -1;
};

}  // namespace orlo::tools::powershell
