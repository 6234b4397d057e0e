#pragma once

#include <string>

#include "orlo/commands/nvme/Command.h"

namespace orlo::commands::nvme {

// An NVMe command whose data flows from the drive.
class ReadCommand : public Command {
 public:
  explicit ReadCommand(std::string name);
};

}  // namespace orlo::commands::nvme
