#include "host/MetricsFile.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "devices/RegularFile.h"
#include "orlo/core/OwnStatuses.h"

namespace orlo::host {

namespace {

// Holds SIGINT, SIGTERM and SIGHUP back for its lifetime; one that came meanwhile is
// delivered when it ends. orlo runs its own commands on one thread, so the mask of this
// one decides.
class SignalsHeld {
 public:
  SignalsHeld() {
    sigset_t held;
    sigemptyset(&held);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&held, signal);
    pthread_sigmask(SIG_BLOCK, &held, &previous_);
  }
  SignalsHeld(const SignalsHeld&) = delete;
  SignalsHeld& operator=(const SignalsHeld&) = delete;
  ~SignalsHeld() { pthread_sigmask(SIG_SETMASK, &previous_, nullptr); }

 private:
  sigset_t previous_;
};

// The temporary file beside the destination: closed, and removed unless it was renamed,
// on every way out.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::filesystem::path& destination)
      : name_((destination.parent_path() / ("." + destination.filename().string() + ".XXXXXX"))
                  .string()) {
    // Last, so that errno is still mkostemp's when it fails.
    descriptor_ = mkostemp(name_.data(), O_CLOEXEC);
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (descriptor_ >= 0) close(descriptor_);
    if (descriptor_ >= 0 && !renamed_) unlink(name_.c_str());
  }

  int descriptor() const { return descriptor_; }
  const std::string& name() const { return name_; }
  void renamed() { renamed_ = true; }

 private:
  std::string name_;
  int descriptor_ = -1;
  bool renamed_ = false;
};

bool writeAll(int descriptor, const std::string& text) {
  std::size_t written = 0;
  while (written < text.size()) {
    const ssize_t count = write(descriptor, text.data() + written, text.size() - written);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    written += static_cast<std::size_t>(count);
  }
  return true;
}

// The step that failed, as "flush the temporary file", with errno as it left it; no step
// when the text is in place.
struct Failure {
  const char* step = nullptr;
  int error = 0;
};

Failure putInPlace(TemporaryFile& temporary, const std::string& path, const std::string& text) {
  if (temporary.descriptor() < 0) return {"create a temporary file beside it", errno};
  if (!writeAll(temporary.descriptor(), text)) return {"write the temporary file", errno};
  if (fchmod(temporary.descriptor(), 0644) != 0) return {"set the temporary file's mode", errno};
  if (fsync(temporary.descriptor()) != 0) return {"flush the temporary file", errno};
  if (rename(temporary.name().c_str(), path.c_str()) != 0) {
    return {"rename the temporary file to it", errno};
  }
  temporary.renamed();
  return {};
}

}  // namespace

core::Status writeFileAtomically(const std::string& path, const std::string& text) {
  struct stat existing {};
  if (stat(path.c_str(), &existing) == 0 && !S_ISREG(existing.st_mode)) {
    return devices::notRegularFile(path, devices::kindOf(existing.st_mode));
  }
  const SignalsHeld held;
  TemporaryFile temporary(path);
  const Failure failure = putInPlace(temporary, path, text);
  if (failure.step != nullptr) {
    return core::fileNotWritten(path, failure.step, std::strerror(failure.error));
  }
  return core::Status::success();
}

}  // namespace orlo::host
