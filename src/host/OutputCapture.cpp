#include "host/OutputCapture.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>

namespace orlo::host {

namespace {

// std::cout writes through C's stdout; both may hold bytes not yet written.
void flushStandardOutput() {
  std::cout.flush();
  std::fflush(stdout);
}

std::string lastError(const char* what) {
  return std::string(what) + ": " + std::strerror(errno);
}

}  // namespace

OutputCapture::~OutputCapture() {
  restore();
  if (held_ >= 0) close(held_);
}

std::optional<std::string> OutputCapture::start() {
  flushStandardOutput();
  // Close-on-exec: only descriptor 1 itself is to reach the programs started meanwhile.
  const int held = memfd_create("orlo-output", MFD_CLOEXEC);
  if (held < 0) return lastError("memfd_create");
  const int saved = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0);
  if (saved < 0) {
    const std::string reason = lastError("dup");
    close(held);
    return reason;
  }
  if (dup2(held, STDOUT_FILENO) < 0) {
    const std::string reason = lastError("dup2");
    close(saved);
    close(held);
    return reason;
  }
  held_ = held;
  saved_ = saved;
  return std::nullopt;
}

std::vector<std::string> OutputCapture::finish() {
  restore();
  std::vector<std::string> lines;
  std::string line;
  char block[4096];
  off_t offset = 0;
  for (;;) {
    const ssize_t count = pread(held_, block, sizeof block, offset);
    if (count < 0 && errno == EINTR) continue;
    // An anonymous file in memory does not fail to read; an error would end the text.
    if (count <= 0) break;
    offset += count;
    for (ssize_t i = 0; i < count; ++i) {
      if (block[i] != '\n') {
        line += block[i];
        continue;
      }
      lines.push_back(std::move(line));
      line.clear();
    }
  }
  if (!line.empty()) lines.push_back(std::move(line));
  if (held_ >= 0) close(held_);
  held_ = -1;
  return lines;
}

void OutputCapture::restore() {
  if (saved_ < 0) return;
  flushStandardOutput();
  dup2(saved_, STDOUT_FILENO);
  close(saved_);
  saved_ = -1;
}

}  // namespace orlo::host
