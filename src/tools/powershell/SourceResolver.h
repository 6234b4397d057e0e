#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "CompressArchiveRequest.h"
#include "Error.h"

namespace orlo::tools::powershell {

// One file system object that a path of the request names.
struct ResolvedSource {
  std::filesystem::path path;  // absolute, without "." or ".." components
  // Found by a wildcard: it is then treated like a child met while walking a
  // folder ("D/*" adds what walking D would add, without the "D/" root).
  bool matchedByWildcard = false;
};

// Turns the request's paths into the objects they name: -Path items holding
// "*", "?" or "[" are matched against the file system (no match adds nothing),
// every other item must exist. Names the first missing or repeated path.
Error resolveSources(const CompressArchiveRequest& request, std::vector<ResolvedSource>& sources);

}  // namespace orlo::tools::powershell
