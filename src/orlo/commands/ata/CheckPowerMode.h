#pragma once

#include "orlo/commands/ata/NonDataCommand.h"

namespace orlo::commands::ata {

// CHECK POWER MODE (0xE5): the drive answers in the Sector Count register.
class CheckPowerMode : public NonDataCommand {
 public:
  CheckPowerMode();
};

}  // namespace orlo::commands::ata
