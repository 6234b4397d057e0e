#include "orlo/commands/ata/IdentifyDevice.h"

#include "orlo/commands/ata/Layout.h"

namespace orlo::commands::ata {

IdentifyDevice::IdentifyDevice() : PIOReadCommand("IdentifyDevice") {
  currentTaskFile.command = layout::kIdentifyDevice;
  currentTaskFile.sectorCount = 1;
  transferBlocks = 1;
}

}  // namespace orlo::commands::ata
