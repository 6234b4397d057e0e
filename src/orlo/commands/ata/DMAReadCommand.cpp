#include "orlo/commands/ata/DMAReadCommand.h"

#include <utility>

namespace orlo::commands::ata {

DMAReadCommand::DMAReadCommand(std::string name) : Command(std::move(name)) {
  dataIn = true;
  dma = true;
}

}  // namespace orlo::commands::ata
