#include "plugins/update_ir/UpdateZip.h"

#include <filesystem>
#include <iostream>

#include "plugins/update_ir/CompressArchive.h"

namespace plugin::cli {

int32_t gVerbosity = 0;

namespace {

orlo::core::Status openFileFailed(const std::string& message) {
  auto status = orlo::core::Status::openFileFailed();
  status.setMessage(message);
  return status;
}

}  // namespace

orlo::core::Status updateZip(const std::string& source, const std::string& destination) {
  auto status = orlo::core::Status::success();
  if (!std::filesystem::exists(source)) {
    return openFileFailed("Failed to open source file: " + source);
  }
  if (!std::filesystem::exists(destination)) {
    return openFileFailed("Failed to open destination file: " + destination);
  }

  if (compressArchive(source, destination, gVerbosity >= 1) != 0) {
    status = openFileFailed("Failed to update destination file with " + source);
  } else {
    status.setMessage("Successfully updated destination file with " + source);
  }
  std::cout << status.message() << std::endl;
  return status;
}

}  // namespace plugin::cli
