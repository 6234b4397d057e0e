#pragma once

#include <cstdint>

#include "orlo/commands/nvme/ReadCommand.h"

namespace orlo::commands::nvme {

// The Admin command Identify (opcode 6), reading one 4096-byte structure.
class Identify : public ReadCommand {
 public:
  Identify();

  // Chooses the structure: bits 7:0 of DWord 10; the other bits are kept.
  virtual void setCns(uint8_t cns);
};

}  // namespace orlo::commands::nvme
