#include "devices/DriveNode.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace orlo::devices {

DriveNode::~DriveNode() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

core::Status DriveNode::open(const std::string& path) {
  if (descriptor_ >= 0) ::close(descriptor_);
  path_ = path;
  descriptor_ = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (descriptor_ < 0) return nodeFailure(core::Status::openFileFailed(), "open", path, errno);
  return core::Status::success();
}

core::Status nodeFailure(core::Status failed, const std::string& action, const std::string& path,
                         int error) {
  std::string message = "Could not " + action + " " + path + ": " + std::strerror(error) + ".";
  if (error == EACCES || error == EPERM) message += " Reading a drive needs root.";
  failed.setMessage(message);
  return failed;
}

}  // namespace orlo::devices
