#include "orlo/commands/ata/ReadDMA.h"

#include "orlo/commands/ata/Layout.h"

namespace orlo::commands::ata {

ReadDMA::ReadDMA() : DMAReadCommand("ReadDMA") {
  currentTaskFile.command = layout::kReadDma;
  currentTaskFile.sectorCount = 1;
  currentTaskFile.lbaLow = 0;
  currentTaskFile.lbaMid = 0;
  currentTaskFile.lbaHigh = 0;
  // The low four bits of Device carry LBA bits 27:24, which are zero here too.
  currentTaskFile.device &= 0xF0;
  transferBlocks = 1;
  transferBytes = 0;
}

}  // namespace orlo::commands::ata
