#pragma once

#include <cstdint>

#include "orlo/commands/ata/PIOReadCommand.h"

namespace orlo::commands::ata {

// READ LOG EXT (2Fh): `pages` pages of 512 bytes of the General Purpose Log at
// `logAddress`, from page `firstPage`. A 48-bit command: the high bytes of the
// page number and of the count go in the previous task file.
class ReadLogExt : public PIOReadCommand {
 public:
  ReadLogExt(uint8_t logAddress, uint16_t firstPage, uint16_t pages);
};

}  // namespace orlo::commands::ata
