#include "orlo/commands/ata/PIOReadCommand.h"

#include <utility>

namespace orlo::commands::ata {

PIOReadCommand::PIOReadCommand(std::string name) : Command(std::move(name)) {
  dataIn = true;
}

}  // namespace orlo::commands::ata
