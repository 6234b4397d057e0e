#include "orlo/commands/nvme/Identify.h"

namespace orlo::commands::nvme {

Identify::Identify() : ReadCommand("Identify") {
  submissionEntry.bytes[0] = layout::kIdentifyOpcode;
  admin = true;
  transferBytes = layout::kIdentifySize;
}

void Identify::setCns(uint8_t cns) {
  submissionEntry.set(layout::kCns, cns);
}

}  // namespace orlo::commands::nvme
