#pragma once

#include <cstdint>
#include <string>

#include "orlo/core/Status.h"

namespace plugin::cli {

// How much the archive update prints: 0 quiet, 1 for "-v", 2 for "-vv". Set by
// UpdateIRFeature on every run; the update only asks whether it is at least 1.
extern int32_t gVerbosity;

// Puts the file at `source` into the incident-report archive at `destination`.
// Both paths must exist, the source being tested first; a missing one gives
// Status::openFileFailed naming it, and nothing is printed. Otherwise the outcome
// line, "Successfully updated destination file with SOURCE" or "Failed to update
// destination file with SOURCE", is printed and is also the message of the result.
// Errors of the file system other than "not found" leave as
// std::filesystem::filesystem_error.
orlo::core::Status updateZip(const std::string& source, const std::string& destination);

}  // namespace plugin::cli
