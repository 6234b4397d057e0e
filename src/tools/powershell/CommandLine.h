#pragma once

#include <string>
#include <vector>

#include "CompressArchiveRequest.h"
#include "Error.h"

namespace orlo::tools::powershell {

// Binds the words after "powershell" to the parameters of Compress-Archive, the
// way PowerShell binds them: the cmdlet and parameter names ignore case, a
// parameter may be shortened to any unique prefix, "-Name:value" is allowed,
// the first two free words are the path and the destination, and a comma
// separates the items of a path list.
Error parseCommandLine(const std::vector<std::string>& words, CompressArchiveRequest& request);

}  // namespace orlo::tools::powershell
