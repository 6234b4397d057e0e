#include "Destination.h"

#include <sys/stat.h>
#include <unistd.h>

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

// The read-only attribute as it is seen on this system: the archive's write
// permission for the class of user (owner, group, others) we belong to.
bool isReadOnly(const struct stat& status) {
  if (status.st_uid == geteuid()) return (status.st_mode & S_IWUSR) == 0;
  if (status.st_gid == getegid()) return (status.st_mode & S_IWGRP) == 0;
  return (status.st_mode & S_IWOTH) == 0;
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
  if (!request.update && !request.force) return messages::archiveExists(target.shownName);
  if (request.update && isReadOnly(status)) return messages::archiveReadOnly(target.shownName);
  std::error_code unresolved;
  target.file = fs::canonical(target.shownName, unresolved);
  if (unresolved) return messages::pathNotFound(target.shownName);
  target.exists = true;
  target.device = status.st_dev;
  target.inode = status.st_ino;
  return std::nullopt;
}

}  // namespace orlo::tools::powershell
