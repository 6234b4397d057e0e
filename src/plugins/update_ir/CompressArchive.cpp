#include "plugins/update_ir/CompressArchive.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "plugins/update_ir/ZipExtension.h"

namespace plugin::cli {

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
