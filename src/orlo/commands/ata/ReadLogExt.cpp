#include "orlo/commands/ata/ReadLogExt.h"

#include "orlo/commands/ata/Layout.h"

namespace orlo::commands::ata {

ReadLogExt::ReadLogExt(uint8_t logAddress, uint16_t firstPage, uint16_t pages)
    : PIOReadCommand("ReadLogExt") {
  extended = true;
  currentTaskFile.command = layout::kReadLogExt;
  currentTaskFile.lbaLow = logAddress;
  currentTaskFile.lbaMid = static_cast<uint8_t>(firstPage);
  previousTaskFile.lbaMid = static_cast<uint8_t>(firstPage >> 8);
  currentTaskFile.sectorCount = static_cast<uint8_t>(pages);
  previousTaskFile.sectorCount = static_cast<uint8_t>(pages >> 8);
  transferBlocks = pages;
}

}  // namespace orlo::commands::ata
