#include "orlo/commands/ata/NonDataCommand.h"

#include <utility>

namespace orlo::commands::ata {

NonDataCommand::NonDataCommand(std::string name) : Command(std::move(name)) {
  dataNone = true;
  transferBlocks = 0;
}

}  // namespace orlo::commands::ata
