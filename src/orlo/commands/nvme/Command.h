#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "orlo/commands/nvme/SubmissionEntry.h"
#include "orlo/core/QueueableCommand.h"

namespace orlo::commands::nvme {

// One NVMe command: the submission entry as the drive receives it, the direction and
// kind flags, and the transfer numbers. The device object owns what this library
// leaves at zero: CID, PSDT, the PRP entries, transferBlocks and submissionQueueId.
class Command : public core::QueueableCommand {
 public:
  explicit Command(std::string name);

  // A plain Command equal to this one in every field, whatever this object's class.
  std::unique_ptr<core::Command> clone() const override;
  // The name, a hexadecimal dump of the entry, the entry's fields and the flags.
  std::string toString() const override;
  // An "Object" of category "command" with the entry and the transfer numbers.
  std::unique_ptr<core::xml::XmlObject> toXml() const override;
  // Copies the entry, the flags and the transfer numbers, then the queue block,
  // the protocol and the name.
  virtual void copyFrom(const Command& other);

  SubmissionEntry submissionEntry;
  bool dataIn = false;
  bool dataOut = false;
  bool dataNone = false;
  bool dataBi = false;
  bool admin = false;
  bool asynchronous = false;
  uint32_t transferBlocks = 0;
  uint64_t transferBytes = 0;
  uint16_t submissionQueueId = 0;
};

}  // namespace orlo::commands::nvme
