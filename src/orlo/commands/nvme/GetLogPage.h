#pragma once

#include "orlo/commands/nvme/ReadCommand.h"

namespace orlo::commands::nvme {

// The Admin command Get Log Page (opcode 2). The caller fills the log's identifier,
// size and offset into the entry and sets transferBytes.
class GetLogPage : public ReadCommand {
 public:
  GetLogPage();
};

}  // namespace orlo::commands::nvme
