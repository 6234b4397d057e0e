#pragma once

#include <memory>
#include <string>

#include "devices/KernelCalls.h"
#include "orlo/core/Status.h"

namespace orlo::devices {

// An open device node (/dev/nvme0, /dev/nvme0n1, /dev/sda), reached through the
// kernel calls it was opened with and closed with the object.
class DriveNode {
 public:
  DriveNode() = default;
  DriveNode(const DriveNode&) = delete;
  DriveNode& operator=(const DriveNode&) = delete;
  ~DriveNode();

  // Opens the node for reading; a failure says why, in words for the user.
  core::Status open(const std::string& path, std::shared_ptr<KernelCalls> kernel);

  // The ioctl's result, or the error number negated.
  int ioctl(unsigned long request, void* argument) const;
  const std::string& path() const { return path_; }

 private:
  void close();

  std::shared_ptr<KernelCalls> kernel_;
  int descriptor_ = -1;
  std::string path_;
};

// The status of a failed system call on a drive node: `failed` (a status of the
// catalogue) keeps its code and gets a message naming the action, the node and the
// system's reason. Permission errors add that reading a drive needs root.
core::Status nodeFailure(core::Status failed, const std::string& action, const std::string& path,
                         int error);

}  // namespace orlo::devices
