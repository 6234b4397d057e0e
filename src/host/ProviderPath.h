#pragma once

#include <filesystem>

namespace orlo::host {

// Puts `folder` first on this process's PATH, so that the programs a plug-in starts
// through the shell, such as `powershell`, are found there before anywhere else.
void putFirstOnPath(const std::filesystem::path& folder);

}  // namespace orlo::host
