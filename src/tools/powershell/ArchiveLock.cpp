#include "ArchiveLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "Messages.h"
#include "TemporaryArchive.h"

namespace orlo::tools::powershell {

namespace {

namespace fs = std::filesystem;

bool sameFile(const struct stat& one, const struct stat& other) {
  return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

// Whether the lock taken on `descriptor` still guards the archive as
// `target` found it.
bool stillGuards(int descriptor, const ArchiveTarget& target) {
  struct stat current {};
  if (!target.exists) return stat(target.file.c_str(), &current) != 0 && errno == ENOENT;
  struct stat locked {};
  return fstat(descriptor, &locked) == 0 && stat(target.file.c_str(), &current) == 0 &&
         sameFile(locked, current);
}

}  // namespace

ArchiveLock::~ArchiveLock() {
  if (descriptor_ >= 0) close(descriptor_);
}

Error ArchiveLock::acquire(const CompressArchiveRequest& request, ArchiveTarget& target) {
  for (;;) {
    if (Error error = resolveDestination(request, target)) return error;
    const fs::path guarded = target.exists                   ? target.file
                             : target.file.has_parent_path() ? target.file.parent_path()
                                                             : fs::path(".");
    const int descriptor =
        open(guarded.c_str(), O_RDONLY | O_CLOEXEC | (target.exists ? 0 : O_DIRECTORY));
    if (descriptor < 0 && errno == ENOENT) continue;  // replaced or removed meanwhile
    if (descriptor < 0) return messages::archiveNotLocked(target.shownName, std::strerror(errno));
    int locked;
    while ((locked = flock(descriptor, LOCK_EX)) != 0 && errno == EINTR) {
    }
    if (locked != 0) {
      const int problem = errno;
      close(descriptor);
      return messages::archiveNotLocked(target.shownName, std::strerror(problem));
    }
    if (stillGuards(descriptor, target)) {
      descriptor_ = descriptor;
      temporary_archive::removeLeftovers(target.file);
      return std::nullopt;
    }
    close(descriptor);
  }
}

}  // namespace orlo::tools::powershell
