#pragma once

#include <cctype>
#include <cstddef>
#include <string>

namespace plugin::cli {

inline const std::string zipExtension = ".zip";

// Whether the update uses a destination under its own name: it ends with ".zip",
// compared byte by byte with the C library's tolower, so only ASCII letters fold.
// A name shorter than the extension does not end with it. The host asks the same
// question before the update runs.
inline bool endsWithZip(const std::string& path) {
  if (path.size() < zipExtension.size()) return false;
  const std::size_t start = path.size() - zipExtension.size();
  for (std::size_t i = 0; i < zipExtension.size(); ++i) {
    const auto byte = static_cast<unsigned char>(path[start + i]);
    if (std::tolower(byte) != std::tolower(static_cast<unsigned char>(zipExtension[i]))) {
      return false;
    }
  }
  return true;
}

}  // namespace plugin::cli
