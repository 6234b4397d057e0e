#include "orlo/commands/ata/IdentifyDevice.h"

namespace orlo::commands::ata {

IdentifyDevice::IdentifyDevice() : PIOReadCommand("IdentifyDevice") {
  currentTaskFile.command = 0xEC;
  currentTaskFile.sectorCount = 1;
  transferBlocks = 1;
}

}  // namespace orlo::commands::ata
