#pragma once

#include <cstdint>

namespace orlo::commands::ata {

// The eight ATA registers of one command, in the order in which they go to the
// device. On the way back `feature` holds Error and `command` holds Status.
struct TaskFile {
  uint8_t feature = 0;
  uint8_t sectorCount = 0;
  uint8_t lbaLow = 0;
  uint8_t lbaMid = 0;
  uint8_t lbaHigh = 0;
  uint8_t device = 0;
  uint8_t command = 0;
  uint8_t unused = 0;

  // The registers as the byte string that the device receives.
  const uint8_t* bytes() const { return reinterpret_cast<const uint8_t*>(this); }
};

static_assert(sizeof(TaskFile) == 8, "a task file is eight register bytes");

}  // namespace orlo::commands::ata
