#include "devices/KernelCalls.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>

namespace orlo::devices {

namespace {

class SystemCalls : public KernelCalls {
 public:
  int open(const std::string& path) override {
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    return descriptor < 0 ? -errno : descriptor;
  }

  int ioctl(int descriptor, unsigned long request, void* argument) override {
    const int result = ::ioctl(descriptor, request, argument);
    return result < 0 ? -errno : result;
  }

  void close(int descriptor) override { ::close(descriptor); }
};

}  // namespace

std::shared_ptr<KernelCalls> systemCalls() {
  static const std::shared_ptr<KernelCalls> calls = std::make_shared<SystemCalls>();
  return calls;
}

}  // namespace orlo::devices
