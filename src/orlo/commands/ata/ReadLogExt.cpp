#include "orlo/commands/ata/ReadLogExt.h"

#include "orlo/commands/ata/Layout.h"
#include "orlo/core/BitField.h"

namespace orlo::commands::ata {

ReadLogExt::ReadLogExt(uint8_t logAddress, uint16_t firstPage, uint16_t pages)
    : PIOReadCommand("ReadLogExt") {
  extended = true;
  currentTaskFile.command = layout::kReadLogExt;
  currentTaskFile.lbaLow = logAddress;
  currentTaskFile.lbaMid = static_cast<uint8_t>(core::extract(firstPage, core::bits(7, 0)));
  previousTaskFile.lbaMid = static_cast<uint8_t>(core::extract(firstPage, core::bits(15, 8)));
  currentTaskFile.sectorCount = static_cast<uint8_t>(core::extract(pages, core::bits(7, 0)));
  previousTaskFile.sectorCount = static_cast<uint8_t>(core::extract(pages, core::bits(15, 8)));
  transferBlocks = pages;
}

}  // namespace orlo::commands::ata
