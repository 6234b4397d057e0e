#pragma once

#include "orlo/commands/ata/PIOReadCommand.h"

namespace orlo::commands::ata {

// IDENTIFY DEVICE (0xEC): one 512-byte sector of the drive's description.
class IdentifyDevice : public PIOReadCommand {
 public:
  IdentifyDevice();
};

}  // namespace orlo::commands::ata
