#pragma once

#include <cstdint>
#include <string>

namespace plugin::cli {

// Puts `source` into the zip archive at `destination` by running PowerShell's
// Compress-Archive through the C library's `system`, and gives the interpreter's
// result (0 is success, -1 if nothing could be started).
//
// Compress-Archive wants an archive whose name ends with ".zip" (in any case): any other
// destination is renamed to that name for the length of the run and renamed back
// afterwards, whatever the result. A failed rename leaves as
// std::filesystem::filesystem_error. With `verbose` the command text and the outcome
// are printed.
int32_t compressArchive(const std::string& source, const std::string& destination, bool verbose);

}  // namespace plugin::cli
