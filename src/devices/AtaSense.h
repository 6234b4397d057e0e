#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "devices/SendRecord.h"
#include "orlo/commands/ata/TaskFile.h"

namespace orlo::devices {

// The registers of an ATA command's completion, read from the sense data that a
// SCSI/ATA translation layer returned: the ATA Status Return descriptor of
// descriptor-format sense, or the information fields of fixed-format sense. In the
// task file `feature` holds Error and `command` holds Status. Nothing when the
// sense data carries no registers.
std::optional<commands::ata::TaskFile> ataRegistersFromSense(const uint8_t* sense,
                                                             std::size_t length);

// What the kernel reported for one SG_IO request.
struct SgIoCompletion {
  uint8_t scsiStatus = 0;
  uint16_t hostStatus = 0;
  uint16_t driverStatus = 0;
  const uint8_t* sense = nullptr;
  std::size_t senseLength = 0;
};

// The ATA status and error registers decide, when the sense data has them, and are
// the reply's protocol result; otherwise a command succeeded if SCSI, host and
// driver all report no problem.
DriveReply ataOutcome(const SgIoCompletion& completion);

}  // namespace orlo::devices
