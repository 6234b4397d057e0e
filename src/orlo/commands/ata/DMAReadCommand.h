#pragma once

#include <string>

#include "orlo/commands/ata/Command.h"

namespace orlo::commands::ata {

// An ATA command whose data flows from the drive by DMA.
class DMAReadCommand : public Command {
 public:
  explicit DMAReadCommand(std::string name);
};

}  // namespace orlo::commands::ata
