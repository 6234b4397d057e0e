#include "orlo/commands/nvme/ReadCommand.h"

#include <utility>

namespace orlo::commands::nvme {

ReadCommand::ReadCommand(std::string name) : Command(std::move(name)) {
  dataIn = true;
}

}  // namespace orlo::commands::nvme
