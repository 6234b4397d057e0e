#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "orlo/commands/ata/TaskFile.h"
#include "orlo/core/Command.h"

namespace orlo::commands::ata {

// One ATA command: the task file in its two generations, the direction and kind
// flags, and the transfer length. The host maps the flags onto its platform.
class Command : public core::Command {
 public:
  explicit Command(std::string name);

  // A plain Command equal to this one in every field, whatever this object's class.
  std::unique_ptr<core::Command> clone() const override;
  // The name, the task file(s) register by register, and the flags.
  std::string toString() const override;
  // An "Object" of category "command" with both task files and transferBlocks.
  std::unique_ptr<core::xml::XmlObject> toXml() const override;
  // Copies both task files, the flags and the transfer numbers, then the protocol and
  // the name.
  virtual void copyFrom(const Command& other);

  TaskFile currentTaskFile;
  // The older register generation; it has a meaning only for an `extended` command.
  TaskFile previousTaskFile;
  bool dataIn = false;
  bool dataOut = false;
  bool dataNone = false;
  bool deviceDiagnostic = false;
  bool dma = false;
  bool extended = false;
  bool ignoreDriverLimitations = false;
  bool clearPriorStickyAbort = true;
  uint32_t transferBlocks = 0;
  uint64_t transferBytes = 0;
};

}  // namespace orlo::commands::ata
