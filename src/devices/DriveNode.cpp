#include "devices/DriveNode.h"

#include <cerrno>
#include <cstring>
#include <utility>

namespace orlo::devices {

DriveNode::~DriveNode() {
  close();
}

core::Status DriveNode::open(const std::string& path, std::shared_ptr<KernelCalls> kernel) {
  close();
  kernel_ = std::move(kernel);
  path_ = path;
  const int descriptor = kernel_->open(path);
  if (descriptor < 0) return nodeFailure(core::Status::openFileFailed(), "open", path, -descriptor);
  descriptor_ = descriptor;
  return core::Status::success();
}

int DriveNode::ioctl(unsigned long request, void* argument) const {
  return kernel_->ioctl(descriptor_, request, argument);
}

void DriveNode::close() {
  if (descriptor_ >= 0) kernel_->close(descriptor_);
  descriptor_ = -1;
}

core::Status nodeFailure(core::Status failed, const std::string& action, const std::string& path,
                         int error) {
  std::string message = "Could not " + action + " " + path + ": " + std::strerror(error) + ".";
  if (error == EACCES || error == EPERM) message += " Reading a drive needs root.";
  failed.setMessage(message);
  return failed;
}

}  // namespace orlo::devices
