#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>

#include "orlo/core/AttributeCollection.h"
#include "orlo/core/Payload.h"
#include "orlo/core/ProtocolResult.h"
#include "orlo/core/Status.h"

namespace orlo::devices {

class ReportArchive;

// A drive kept in a directory, so that a ReplayDevice can stand for it:
//   attributes.txt  a "Protocol=NVME" or "Protocol=ATA" line, then "Name=value"
//                   lines of device attributes (names as the property descriptors
//                   spell them); blank lines and lines starting with "#" are skipped
//   *.bin           the drive's reply to one command each, named by replyName; a
//                   regular file each. The reply of an ATA command without data
//                   is the eight registers that it returned, in task file order
//                   (Error, Count, LBA Low, LBA Mid, LBA High, Device, Status, a
//                   zero byte); an empty file keeps none
//   *.status        how the drive refused a command instead: the reply's name
//                   ending in .status, "Name=0xHEX" lines (blank lines and "#"
//                   comments skipped) with the completion it gave. NVMe:
//                   NvmeStatus, the status field (completion dword 3, bits 31:17),
//                   and NvmeResult, completion dword 0. ATA: AtaStatus and
//                   AtaError, the registers. A regular file of at most 4 KiB.
// The same files may be read in place from a folder of an incident report's archive.
class DeviceImage {
 public:
  static constexpr const char* kAttributesFile = "attributes.txt";

  explicit DeviceImage(std::filesystem::path directory);
  // The image in `folder` of an incident report, read through libzip without unpacking
  // it; only a replay reads it, and nothing is written to it.
  DeviceImage(std::shared_ptr<const ReportArchive> archive, std::filesystem::path folder);

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
  // Writes the reply and drops a refusal kept under the same name.
  core::Status writeReply(const std::string& name, const core::Payload& data) const;

  // The refusal kept for the reply `name`, or none in `result`. A refusal file that is
  // not a regular file of at most 4 KiB, or whose lines are not one protocol's fields
  // of a failed completion, gives its failure.
  core::Status readRefusal(const std::string& name,
                           std::unique_ptr<core::ProtocolResult>& result) const;
  // Writes an NVMe or ATA completion as the refusal for the reply `name`, and drops
  // a reply of that name; a result of another kind is no drive's and is not written.
  core::Status writeRefusal(const std::string& name, const core::ProtocolResult& result) const;

  // Our code badImageRefusal: the refusal file at `path` does not hold a failed
  // completion (`why` says what is wrong).
  static core::Status badRefusal(const std::filesystem::path& path, const std::string& why);

  // The image as messages name it: its directory, or "REPORT:FOLDER".
  std::string name() const;

 private:
  // The image's file `name`, at most `limit` bytes, with `found` false when there is none.
  core::Status readFile(const std::string& name, std::size_t limit, std::string& bytes,
                        bool& found) const;
  std::filesystem::path pathOf(const std::string& name) const;

  std::filesystem::path directory_;
  std::shared_ptr<const ReportArchive> archive_;  // none for a directory
};

}  // namespace orlo::devices
