#pragma once

#include <string>

#include "orlo/core/Status.h"

namespace orlo::devices {

// An open device node (/dev/nvme0, /dev/nvme0n1, /dev/sda), closed with the object.
class DriveNode {
 public:
  DriveNode() = default;
  DriveNode(const DriveNode&) = delete;
  DriveNode& operator=(const DriveNode&) = delete;
  ~DriveNode();

  // Opens the node for reading; a failure says why, in words for the user.
  core::Status open(const std::string& path);

  int descriptor() const { return descriptor_; }
  const std::string& path() const { return path_; }

 private:
  int descriptor_ = -1;
  std::string path_;
};

// The status of a failed system call on a drive node: `failed` (a status of the
// catalogue) keeps its code and gets a message naming the action, the node and the
// system's reason. Permission errors add that reading a drive needs root.
core::Status nodeFailure(core::Status failed, const std::string& action, const std::string& path,
                         int error);

}  // namespace orlo::devices
