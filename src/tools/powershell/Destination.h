#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>

#include "CompressArchiveRequest.h"
#include "Error.h"

namespace orlo::tools::powershell {

// The archive file that the request writes.
struct ArchiveTarget {
  std::string shownName;       // as given, with ".zip" appended when it had no extension
  std::filesystem::path file;  // the file replaced in the end (symbolic links resolved)
  bool exists = false;
  dev_t device = 0;  // with `inode`, identifies an existing archive
  ino_t inode = 0;
};

// Applies the destination rules: ".zip" is appended to a name without an
// extension; an existing archive must be a regular file (a folder, a device or
// a pipe is refused, never opened) and is an error unless -Update or -Force is
// given, and -Update refuses an archive that is read-only for this user.
Error resolveDestination(const CompressArchiveRequest& request, ArchiveTarget& target);

}  // namespace orlo::tools::powershell
