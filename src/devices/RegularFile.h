#pragma once

#include <sys/types.h>

#include <cstddef>
#include <filesystem>
#include <string>

#include "orlo/core/Status.h"

namespace orlo::devices {

// What a file of `mode` is, as "a directory", "a FIFO", "a character device".
const char* kindOf(mode_t mode);

// Our code notRegularFile: `path` names a directory, FIFO, socket or device (`kind`, as
// "a directory"), which a reader that wants a file's bytes cannot take.
core::Status notRegularFile(const std::filesystem::path& path, const std::string& kind);

// Our code fileTooLarge: the file at `path` holds more than `limit` bytes.
core::Status fileTooLarge(const std::filesystem::path& path, std::size_t limit);

// Reads the whole of the regular file at `path` into `bytes`, at most `limit` bytes. The
// file is opened without waiting, so that a FIFO nobody writes to is refused rather than
// waited on, and judged by what was opened, not by a name that may change meanwhile.
// Fails with openFileFailed (naming the path and the system's reason), notRegularFile
// or fileTooLarge.
core::Status readRegularFile(const std::filesystem::path& path, std::size_t limit,
                             std::string& bytes);

}  // namespace orlo::devices
