#pragma once

#include <string>

#include "orlo/commands/ata/Command.h"

namespace orlo::commands::ata {

// An ATA command whose data flows from the drive by programmed input/output.
class PIOReadCommand : public Command {
 public:
  explicit PIOReadCommand(std::string name);
};

}  // namespace orlo::commands::ata
