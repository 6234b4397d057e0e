#include "orlo/commands/ata/CheckPowerMode.h"

#include "orlo/commands/ata/Layout.h"

namespace orlo::commands::ata {

CheckPowerMode::CheckPowerMode() : NonDataCommand("CheckPowerMode") {
  currentTaskFile.command = layout::kCheckPowerMode;
}

}  // namespace orlo::commands::ata
