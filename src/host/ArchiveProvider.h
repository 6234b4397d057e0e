#pragma once

#include <filesystem>
#include <string>

#include "host/StopSignals.h"
#include "orlo/core/Status.h"

namespace orlo::host {

// Writes the files and folders in `folder` into a new archive at `destination` with the
// installed provider, started directly (no shell reads any path):
//   powershell Compress-Archive -Path * -DestinationPath DESTINATION [-Force]
// run in `folder`, so that the entries are named below it. Without `force` the provider
// refuses an existing destination; with it, it replaces it. It writes the archive beside
// the destination and renames it over it, so the destination is the old file or the
// whole new one whatever happens. A failure gives what the provider said. `signals` pass
// a stop on to the provider, which then removes its temporary file.
core::Status compressFolder(const std::filesystem::path& provider,
                            const std::filesystem::path& folder, const std::string& destination,
                            bool force, StopSignals& signals);

}  // namespace orlo::host
