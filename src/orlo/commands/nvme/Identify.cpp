#include "orlo/commands/nvme/Identify.h"

namespace orlo::commands::nvme {

Identify::Identify() : ReadCommand("Identify") {
  submissionEntry.bytes[0] = 6;
  admin = true;
  transferBytes = 4096;
}

void Identify::setCns(uint8_t cns) {
  submissionEntry.setDwordBits(10, 0, 8, cns);
}

}  // namespace orlo::commands::nvme
