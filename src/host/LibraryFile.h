#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace orlo::host {

// Why the shared library at `file` must not be handed to dlopen, judged from its ELF
// headers alone: dlopen maps the segments that the program headers name, and a file
// shorter than they claim (one cut short while copied, say) is mapped past its end, so
// that the loader's first touch there ends the process with SIGBUS instead of an error.
// Nothing when every loaded segment lies within the file, and nothing for a file that
// cannot be opened or is no 64-bit ELF file at all, which dlopen refuses by itself.
std::optional<std::string> findCutShortLibrary(const std::filesystem::path& file);

}  // namespace orlo::host
