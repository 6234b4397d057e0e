#pragma once

#include <filesystem>
#include <string>

namespace orlo::tools::powershell {

// Where the new archive is written before it is renamed over the old one: a
// hidden file in the archive's folder whose name is short whatever the
// archive's name (".~orlo-" + 16 hex digits that stand for the archive's name +
// "-XXXXXX"), so that it always fits the folder's limit on names and walking
// the folder passes it by.
namespace temporary_archive {

// The mkstemp template for the archive.
std::string templateFor(const std::filesystem::path& archive);

// Removes the temporary files that earlier runs on the archive left behind
// when they were killed. Only a run that holds the archive's lock may call it:
// no other run is then writing one. Returns how many it removed.
int removeLeftovers(const std::filesystem::path& archive);

}  // namespace temporary_archive

}  // namespace orlo::tools::powershell
