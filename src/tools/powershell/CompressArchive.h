#pragma once

#include "CompressArchiveRequest.h"
#include "Error.h"

namespace orlo::tools::powershell {

// Runs one Compress-Archive request: resolves the sources, locks the
// destination against other updates, collects every entry before touching the
// archive, and writes them all or nothing. Having nothing to add is an error
// that leaves the archive alone.
Error compressArchive(const CompressArchiveRequest& request);

}  // namespace orlo::tools::powershell
