#pragma once

#include "orlo/commands/ata/NonDataCommand.h"
#include "orlo/commands/ata/PIOReadCommand.h"

namespace orlo::commands::ata {

// The SMART commands (B0h): the subcommand in Features, the SMART signature in LBA
// Mid and LBA High.

// SMART READ DATA (D0h): one sector of attribute values.
class SmartReadData : public PIOReadCommand {
 public:
  SmartReadData();
};

// SMART READ THRESHOLDS (D1h): one sector of attribute thresholds.
class SmartReadThresholds : public PIOReadCommand {
 public:
  SmartReadThresholds();
};

// SMART RETURN STATUS (DAh): the drive answers in LBA Mid and LBA High of its
// returned registers, the signature when no threshold is exceeded.
class SmartReturnStatus : public NonDataCommand {
 public:
  SmartReturnStatus();
};

}  // namespace orlo::commands::ata
