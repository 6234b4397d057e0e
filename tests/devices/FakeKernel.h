#pragma once

#include <cerrno>
#include <functional>
#include <string>

#include "devices/KernelCalls.h"

namespace orlo::test {

// The kernel as the backends' tests play it. Opens fail with `openError` when it is
// set and give descriptor 7 otherwise; each ioctl is answered by `answer`, given the
// request and its argument, and until a test sets one every ioctl succeeds without
// touching its argument (an all-zero Identify, no namespace). `closed` counts the
// descriptors closed.
class FakeKernel : public devices::KernelCalls {
 public:
  static constexpr int kDescriptor = 7;

  int open(const std::string&) override { return openError != 0 ? -openError : kDescriptor; }
  int ioctl(int descriptor, unsigned long request, void* argument) override {
    if (descriptor != kDescriptor) return -EBADF;
    return answer ? answer(request, argument) : 0;
  }
  void close(int descriptor) override { closed += descriptor == kDescriptor ? 1 : 0; }

  int openError = 0;
  std::function<int(unsigned long request, void* argument)> answer;
  int closed = 0;
};

}  // namespace orlo::test
