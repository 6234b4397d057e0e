#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Payload.h"
#include "orlo/core/Status.h"

namespace orlo::devices {

// A drive kept in a directory, so that a ReplayDevice can stand for it:
//   attributes.txt  a "Protocol=NVME" or "Protocol=ATA" line, then "Name=value"
//                   lines of device attributes (names as the property descriptors
//                   spell them); blank lines and lines starting with "#" are skipped
//   *.bin           the drive's reply to one command each, named by replyName; a
//                   regular file each
class DeviceImage {
 public:
  static constexpr const char* kAttributesFile = "attributes.txt";

  explicit DeviceImage(std::filesystem::path directory);

  // True when the directory holds an attributes file.
  bool exists() const;

  core::Status readAttributes(std::string& protocol, core::AttributeCollection& attributes) const;
  // Writes the protocol and the attributes that have a descriptor, in the
  // descriptors' order; creates the directory if need be.
  core::Status writeAttributes(const std::string& protocol,
                               const core::AttributeCollection& attributes) const;

  // No command of the toolkit reads more than this; a larger reply is no drive's.
  static constexpr std::size_t kReplyLimit = 16 * 1024 * 1024;

  // The reply stored under `name`, with `found` false if there is none. A reply file
  // that is not a regular file of at most kReplyLimit bytes, or that cannot be read,
  // gives its failure.
  core::Status readReply(const std::string& name, std::string& bytes, bool& found) const;
  core::Status writeReply(const std::string& name, const core::Payload& data) const;

  const std::filesystem::path& directory() const { return directory_; }

 private:
  std::filesystem::path directory_;
};

}  // namespace orlo::devices
