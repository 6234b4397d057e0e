#pragma once

#include <memory>
#include <string>

namespace orlo::devices {

// The system calls through which the pass-through backends reach a drive node. A
// backend is given them when it is opened, so that a test can stand in for the
// kernel and answer, refuse or fail a command without a drive. Each returns what
// its system call returns, except that a failure gives the error number negated
// instead of -1 and errno.
class KernelCalls {
 public:
  virtual ~KernelCalls() = default;

  // Opens a node for reading, without blocking and closed on exec: its descriptor.
  virtual int open(const std::string& path) = 0;
  virtual int ioctl(int descriptor, unsigned long request, void* argument) = 0;
  virtual void close(int descriptor) = 0;
};

// The calls of the running system.
std::shared_ptr<KernelCalls> systemCalls();

}  // namespace orlo::devices
