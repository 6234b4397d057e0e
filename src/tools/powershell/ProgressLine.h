#pragma once

#include <zip.h>

#include <chrono>
#include <string>

namespace orlo::tools::powershell {

// The line on standard error that tells how far a long archive write has come.
// It appears only when standard error is a terminal and the write has taken
// more than a second, and it is cleared when the write ends.
class ProgressLine {
 public:
  explicit ProgressLine(std::string archive);
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  void follow(zip_t* archive);

 private:
  static void report(zip_t* archive, double done, void* self);

  std::string archive_;
  std::chrono::steady_clock::time_point start_;
  int shownPercent_ = -1;
};

}  // namespace orlo::tools::powershell
