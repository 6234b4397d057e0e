#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

#include "Destination.h"
#include "Error.h"
#include "PlannedEntry.h"
#include "SourceResolver.h"

namespace orlo::tools::powershell {

// Turns resolved sources into the entries to write. A file becomes one entry
// named by its last component; a folder D becomes the tree "D/...", where
// walking skips hidden names and symbolic links to folders, follows links to
// files, and gives a folder that yields nothing the entry "D/empty/" (never the
// folder named by the source itself). Anything that cannot be read, or is
// neither file nor folder, is an error: the update then writes nothing.
class EntryCollector {
 public:
  // The archive itself is never added, should a source hold it.
  explicit EntryCollector(const ArchiveTarget& archive) : archive_(archive) {}

  Error add(const ResolvedSource& source);

  // The entries in the order met; of two with the same name, the later one
  // stays. Names that differ only in case are different files on this system,
  // and both are kept.
  std::vector<PlannedEntry> entries() const;

 private:
  Error addNamed(const std::filesystem::path& path);
  Error addChild(const std::filesystem::path& path, const std::string& name);
  Error walk(const std::filesystem::path& folder, const std::string& prefix, bool entryWhenEmpty,
             const struct stat& status);
  Error addFile(const std::filesystem::path& path, const std::string& name,
                const struct stat& status);
  Error addEntry(const std::filesystem::path& path, PlannedEntry entry);

  const ArchiveTarget& archive_;
  std::vector<PlannedEntry> entries_;
};

}  // namespace orlo::tools::powershell
