#pragma once

#include "orlo/commands/ata/DMAReadCommand.h"

namespace orlo::commands::ata {

// READ DMA (0xC8) of one sector at LBA 0.
class ReadDMA : public DMAReadCommand {
 public:
  ReadDMA();
};

}  // namespace orlo::commands::ata
