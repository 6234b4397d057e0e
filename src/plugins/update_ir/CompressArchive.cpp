#include "plugins/update_ir/CompressArchive.h"

#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <iostream>

namespace plugin::cli {

namespace {

const std::string zipExtension = ".zip";

// Byte by byte with the C library's tolower, so only ASCII letters fold.
bool endsWithZip(const std::string& path) {
  if (path.size() < zipExtension.size()) return false;
  const std::size_t start = path.size() - zipExtension.size();
  for (std::size_t i = 0; i < zipExtension.size(); ++i) {
    const auto byte = static_cast<unsigned char>(path[start + i]);
    if (std::tolower(byte) != std::tolower(static_cast<unsigned char>(zipExtension[i]))) {
      return false;
    }
  }
  return true;
}

}  // namespace

int32_t compressArchive(const std::string& source, const std::string& destination, bool verbose) {
  std::string archive = destination;
  if (!endsWithZip(destination)) {
    archive += zipExtension;
    std::filesystem::rename(destination, archive);
  }

  // The paths go in unquoted: a path with a blank reaches the interpreter as several words.
  const std::string command =
      "powershell Compress-Archive -Path " + source + " -Update -DestinationPath " + archive;
  const int32_t result = std::system(command.c_str());

  if (archive != destination) std::filesystem::rename(archive, destination);

  if (verbose) {
    std::cout << "Zip command: " << command << std::endl;
    std::cout << "Adding " << source << " to " << destination
              << "; Result: " << (result == 0 ? "Success" : "Failure") << std::endl;
  }
  return result;
}

}  // namespace plugin::cli
