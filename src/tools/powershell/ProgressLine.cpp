#include "ProgressLine.h"

#include <unistd.h>

#include <algorithm>

namespace orlo::tools::powershell {

ProgressLine::ProgressLine(std::string archive)
    : ProgressLine(std::move(archive), isatty(STDERR_FILENO) == 1 ? stderr : nullptr,
                   std::chrono::seconds(1)) {}

ProgressLine::ProgressLine(std::string archive, std::FILE* terminal,
                           std::chrono::milliseconds delay)
    : archive_(std::move(archive)),
      terminal_(terminal),
      showFrom_(std::chrono::steady_clock::now() + delay) {}

ProgressLine::~ProgressLine() {
  if (shownPercent_ >= 0) std::fputs("\r\033[K", terminal_);
}

void ProgressLine::advance(zip_int64_t bytes) {
  done_ += bytes;
  if (terminal_ == nullptr || expected_ <= 0) return;
  const auto percent = static_cast<int>(std::clamp<zip_int64_t>(done_ * 100 / expected_, 0, 100));
  if (percent == shownPercent_ || std::chrono::steady_clock::now() < showFrom_) return;
  shownPercent_ = percent;
  std::fprintf(terminal_, "\rCompress-Archive: writing %s %3d%%", archive_.c_str(), percent);
  std::fflush(terminal_);
}

}  // namespace orlo::tools::powershell
