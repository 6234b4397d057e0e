#include "TemporaryArchive.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>

namespace orlo::tools::powershell::temporary_archive {

namespace {

constexpr char kPrefix[] = ".~orlo-";
constexpr std::size_t kDigits = 16;
constexpr char kUnique[] = "XXXXXX";

std::filesystem::path folderOf(const std::filesystem::path& archive) {
  return archive.has_parent_path() ? archive.parent_path() : std::filesystem::path(".");
}

// FNV-1a over the archive's own name: two archives of one folder get different
// temporary names, so a run clears only what runs on its own archive left.
std::string stem(const std::filesystem::path& archive) {
  std::uint64_t hash = 0xcbf29ce484222325ULL;
  for (const unsigned char byte : archive.filename().string()) {
    hash = (hash ^ byte) * 0x100000001b3ULL;
  }
  char digits[kDigits + 1];
  std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(hash));
  return std::string(kPrefix) + digits + "-";
}

bool isLeftover(const char* name, const std::string& stemText) {
  return std::strncmp(name, stemText.c_str(), stemText.size()) == 0 &&
         std::strlen(name) == stemText.size() + sizeof kUnique - 1;
}

}  // namespace

std::string templateFor(const std::filesystem::path& archive) {
  return (folderOf(archive) / (stem(archive) + kUnique)).string();
}

int removeLeftovers(const std::filesystem::path& archive) {
  const std::filesystem::path folder = folderOf(archive);
  const std::string stemText = stem(archive);
  const int folderDescriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folderDescriptor < 0) return 0;
  std::unique_ptr<DIR, int (*)(DIR*)> dir(fdopendir(folderDescriptor), closedir);
  if (!dir) {
    close(folderDescriptor);
    return 0;
  }
  int removed = 0;
  while (const dirent* child = readdir(dir.get())) {
    if (isLeftover(child->d_name, stemText) && unlinkat(dirfd(dir.get()), child->d_name, 0) == 0) {
      ++removed;
    }
  }
  return removed;
}

}  // namespace orlo::tools::powershell::temporary_archive
