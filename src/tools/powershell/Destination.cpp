#include "Destination.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "Messages.h"

namespace orlo::tools::powershell {

namespace {

namespace fs = std::filesystem;

// An extension is a "." with something after it in the last component; a
// leading "." counts, as ".zip" is a name with the extension ".zip".
bool hasExtension(const std::string& name) {
  const auto slash = name.rfind('/');
  const auto dot = name.rfind('.');
  const bool inLastComponent =
      dot != std::string::npos && (slash == std::string::npos || dot > slash);
  return inLastComponent && dot + 1 < name.size();
}

// The read-only attribute as it is seen on this system: a file that nobody may
// write, or one that the file system would not let this user write (root may
// write a file of another user; nobody writes on a read-only mount).
bool isReadOnly(const std::string& path, const struct stat& status) {
  if ((status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) return true;
  return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0 &&
         (errno == EACCES || errno == EPERM || errno == EROFS);
}

}  // namespace

Error resolveDestination(const CompressArchiveRequest& request, ArchiveTarget& target) {
  target.shownName = request.destination;
  if (!hasExtension(target.shownName)) target.shownName += ".zip";

  struct stat status {};
  if (stat(target.shownName.c_str(), &status) != 0) {
    const fs::path folder = fs::absolute(target.shownName).parent_path();
    std::error_code unreachable;
    if (!fs::is_directory(folder, unreachable)) return messages::pathNotFound(folder.string());
    target.file = target.shownName;
    target.exists = false;
    return std::nullopt;
  }
  if (S_ISDIR(status.st_mode)) return messages::archiveIsFolder(target.shownName);
  if (!S_ISREG(status.st_mode)) return messages::archiveNotAFile(target.shownName);
  if (!request.update && !request.force) return messages::archiveExists(target.shownName);
  if (request.update && isReadOnly(target.shownName, status)) {
    return messages::archiveReadOnly(target.shownName);
  }
  std::error_code unresolved;
  target.file = fs::canonical(target.shownName, unresolved);
  if (unresolved) return messages::pathNotFound(target.shownName);
  target.exists = true;
  target.device = status.st_dev;
  target.inode = status.st_ino;
  return std::nullopt;
}

}  // namespace orlo::tools::powershell
