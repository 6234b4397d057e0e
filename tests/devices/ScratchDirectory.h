#pragma once

#include <filesystem>
#include <random>
#include <string>

namespace orlo::test {

// A fresh directory under the system's temporary directory, removed with its
// contents when the object goes.
class ScratchDirectory {
 public:
  ScratchDirectory() {
    std::random_device random;
    path = std::filesystem::temp_directory_path() / ("orlo-test-" + std::to_string(random()));
    std::filesystem::create_directories(path);
  }
  ~ScratchDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  ScratchDirectory(const ScratchDirectory&) = delete;
  ScratchDirectory& operator=(const ScratchDirectory&) = delete;

  std::filesystem::path path;
};

}  // namespace orlo::test
