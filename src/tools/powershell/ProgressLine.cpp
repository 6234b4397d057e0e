#include "ProgressLine.h"

#include <unistd.h>

#include <cstdio>

namespace orlo::tools::powershell {

ProgressLine::ProgressLine(std::string archive)
    : archive_(std::move(archive)), start_(std::chrono::steady_clock::now()) {}

ProgressLine::~ProgressLine() {
  if (shownPercent_ >= 0) std::fputs("\r\033[K", stderr);
}

void ProgressLine::follow(zip_t* archive) {
  if (isatty(STDERR_FILENO) == 1) {
    zip_register_progress_callback_with_state(archive, 0.01, &ProgressLine::report, nullptr, this);
  }
}

void ProgressLine::report(zip_t*, double done, void* self) {
  auto& line = *static_cast<ProgressLine*>(self);
  const int percent = static_cast<int>(done * 100.0);
  if (percent == line.shownPercent_ ||
      std::chrono::steady_clock::now() - line.start_ < std::chrono::seconds(1)) {
    return;
  }
  line.shownPercent_ = percent;
  std::fprintf(stderr, "\rCompress-Archive: writing %s %3d%%", line.archive_.c_str(), percent);
  std::fflush(stderr);
}

}  // namespace orlo::tools::powershell
