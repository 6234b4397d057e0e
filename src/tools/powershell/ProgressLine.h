#pragma once

#include <zip.h>

#include <chrono>
#include <cstdio>
#include <string>

namespace orlo::tools::powershell {

// The line that tells how far a long archive write has come, in bytes: the
// old archive's bytes as they are copied or cloned into the new one and the
// new files' bytes as they are deflated (or stored), against the sum of both
// worked out before the write starts. Counting plain bytes for new files keeps
// the line steady whatever they compress to, which is known only at the end.
// The line appears once the write has taken `delay`, and is cleared when it
// ends. All counting happens on the thread that runs libzip.
class ProgressLine {
 public:
  // On standard error when it is a terminal, after a second; otherwise never.
  explicit ProgressLine(std::string archive);
  // On `terminal` (nullptr: never shown) after `delay`.
  ProgressLine(std::string archive, std::FILE* terminal, std::chrono::milliseconds delay);
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  // Adds to (or, for an old entry that is replaced, takes from) the bytes the
  // write will go through.
  void expect(zip_int64_t bytes) { expected_ += bytes; }
  // Bytes gone through; a new file's deflated bytes, counted once as written,
  // are taken back for its plain bytes.
  void advance(zip_int64_t bytes);

 private:
  std::string archive_;
  std::FILE* terminal_;
  std::chrono::steady_clock::time_point showFrom_;
  zip_int64_t expected_ = 0;
  zip_int64_t done_ = 0;
  int shownPercent_ = -1;
};

}  // namespace orlo::tools::powershell
