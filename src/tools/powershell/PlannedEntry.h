#pragma once

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <string>

namespace orlo::tools::powershell {

// One entry that the update writes.
struct PlannedEntry {
  std::string name;              // "D/sub/f.txt", or "D/empty/" for an empty folder
  std::filesystem::path source;  // the file whose contents are stored; empty for a folder
  std::time_t modified = 0;      // the last write time of the file or folder
  std::uint64_t size = 0;        // of the file when it was found

  bool isFolder() const { return !name.empty() && name.back() == '/'; }
};

}  // namespace orlo::tools::powershell
