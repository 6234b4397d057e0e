#include "devices/RegularFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "orlo/core/OwnStatuses.h"

namespace orlo::devices {

namespace {

core::Status systemFailure(const std::filesystem::path& path, const char* what, int error) {
  core::Status failed = core::Status::openFileFailed();
  failed.setMessage("Cannot " + std::string(what) + " " + path.string() + ": " +
                    std::strerror(error) + ".");
  return failed;
}

// Closes the descriptor on every way out.
class Descriptor {
 public:
  explicit Descriptor(int descriptor) : descriptor_(descriptor) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  int get() const { return descriptor_; }

 private:
  int descriptor_;
};

}  // namespace

const char* kindOf(mode_t mode) {
  if (S_ISDIR(mode)) return "a directory";
  if (S_ISFIFO(mode)) return "a FIFO";
  if (S_ISSOCK(mode)) return "a socket";
  if (S_ISCHR(mode)) return "a character device";
  if (S_ISBLK(mode)) return "a block device";
  return "not a regular file";
}

core::Status notRegularFile(const std::filesystem::path& path, const std::string& kind) {
  return core::ownStatus(core::OwnCode::notRegularFile,
                         path.string() + " is " + kind + ", not a regular file.");
}

core::Status fileTooLarge(const std::filesystem::path& path, std::size_t limit) {
  return core::ownStatus(core::OwnCode::fileTooLarge, path.string() + " is larger than " +
                                                          std::to_string(limit / 1024) + " KiB.");
}

core::Status readRegularFile(const std::filesystem::path& path, std::size_t limit,
                             std::string& bytes) {
  const Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
  if (file.get() < 0) return systemFailure(path, "open", errno);
  struct stat status {};
  if (fstat(file.get(), &status) != 0) return systemFailure(path, "examine", errno);
  if (!S_ISREG(status.st_mode)) return notRegularFile(path, kindOf(status.st_mode));
  // The size is only a first guess: the file may grow while it is read.
  std::string read(std::min(static_cast<std::size_t>(status.st_size), limit) + 1, '\0');
  std::size_t length = 0;
  while (length <= limit) {
    if (length == read.size()) read.resize(std::min(read.size() * 2, limit + 1));
    const ssize_t got = ::read(file.get(), &read[length], read.size() - length);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return systemFailure(path, "read", errno);
    if (got == 0) break;
    length += static_cast<std::size_t>(got);
  }
  if (length > limit) return fileTooLarge(path, limit);
  read.resize(length);
  bytes = std::move(read);
  return core::Status::success();
}

}  // namespace orlo::devices
