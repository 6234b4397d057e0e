#include "orlo/commands/ata/CheckPowerMode.h"

namespace orlo::commands::ata {

CheckPowerMode::CheckPowerMode() : NonDataCommand("CheckPowerMode") {
  currentTaskFile.command = 0xE5;
}

}  // namespace orlo::commands::ata
