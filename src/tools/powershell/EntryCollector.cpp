#include "EntryCollector.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <set>

#include "EntryName.h"
#include "Messages.h"

namespace orlo::tools::powershell {

namespace {

namespace fs = std::filesystem;

Error unreadable(const fs::path& path) {
  return messages::pathUnreadable(path.string(), std::strerror(errno));
}

// The visible children of a folder, sorted so that archives come out the same
// from one run to the next.
Error listFolder(const fs::path& folder, std::vector<std::string>& names) {
  std::unique_ptr<DIR, int (*)(DIR*)> dir(opendir(folder.c_str()), closedir);
  if (!dir) return unreadable(folder);
  errno = 0;
  while (const dirent* child = readdir(dir.get())) {
    if (child->d_name[0] != '.') names.emplace_back(child->d_name);
  }
  if (errno != 0) return unreadable(folder);
  std::sort(names.begin(), names.end());
  return std::nullopt;
}

}  // namespace

Error EntryCollector::add(const ResolvedSource& source) {
  if (source.matchedByWildcard) return addChild(source.path, source.path.filename().string());
  return addNamed(source.path);
}

std::vector<PlannedEntry> EntryCollector::entries() const {
  std::vector<PlannedEntry> kept;
  std::set<std::string> names;
  for (auto entry = entries_.rbegin(); entry != entries_.rend(); ++entry) {
    if (names.insert(entry->name).second) kept.push_back(*entry);
  }
  std::reverse(kept.begin(), kept.end());
  return kept;
}

Error EntryCollector::addNamed(const fs::path& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return unreadable(path);
  const std::string name = path.filename().string();  // empty for "/"
  if (S_ISDIR(status.st_mode)) return walk(path, name.empty() ? "" : name + "/", false, status);
  if (S_ISREG(status.st_mode)) return addFile(path, name, status);
  return messages::notFileOrFolder(path.string());
}

Error EntryCollector::addChild(const fs::path& path, const std::string& name) {
  struct stat status {};
  if (lstat(path.c_str(), &status) != 0) return unreadable(path);
  if (S_ISLNK(status.st_mode)) {
    if (stat(path.c_str(), &status) != 0) return unreadable(path);
    if (S_ISDIR(status.st_mode)) return std::nullopt;
  }
  if (S_ISDIR(status.st_mode)) return walk(path, name + "/", true, status);
  if (S_ISREG(status.st_mode)) return addFile(path, name, status);
  return messages::notFileOrFolder(path.string());
}

Error EntryCollector::walk(const fs::path& folder, const std::string& prefix, bool entryWhenEmpty,
                           const struct stat& status) {
  std::vector<std::string> names;
  if (Error error = listFolder(folder, names)) return error;
  const std::size_t before = entries_.size();
  for (const std::string& name : names) {
    if (Error error = addChild(folder / name, prefix + name)) return error;
  }
  if (entryWhenEmpty && entries_.size() == before) {
    return addEntry(folder, PlannedEntry{prefix, {}, status.st_mtime});
  }
  return std::nullopt;
}

Error EntryCollector::addFile(const fs::path& path, const std::string& name,
                              const struct stat& status) {
  if (archive_.exists && status.st_dev == archive_.device && status.st_ino == archive_.inode) {
    return std::nullopt;
  }
  // Opening now names the file that cannot be read, before anything is written.
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
  if (descriptor < 0) return unreadable(path);
  close(descriptor);
  return addEntry(
      path, PlannedEntry{name, path, status.st_mtime, static_cast<std::uint64_t>(status.st_size)});
}

Error EntryCollector::addEntry(const fs::path& path, PlannedEntry entry) {
  if (!isValidUtf8(entry.name)) return messages::nameNotUtf8(path.string());
  if (!isSafeEntryName(entry.name)) return messages::nameUnsafe(path.string(), entry.name);
  entries_.push_back(std::move(entry));
  return std::nullopt;
}

}  // namespace orlo::tools::powershell
