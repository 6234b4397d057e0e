#pragma once

#include <string>

#include "orlo/commands/ata/Command.h"

namespace orlo::commands::ata {

// An ATA command without a data phase.
class NonDataCommand : public Command {
 public:
  explicit NonDataCommand(std::string name);
};

}  // namespace orlo::commands::ata
