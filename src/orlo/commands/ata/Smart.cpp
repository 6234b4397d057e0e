#include "orlo/commands/ata/Smart.h"

#include "orlo/commands/ata/Layout.h"

namespace orlo::commands::ata {

namespace {

void smartRegisters(TaskFile& registers, uint8_t subcommand) {
  registers.command = layout::kSmart;
  registers.feature = subcommand;
  registers.lbaMid = layout::kSmartSignatureMid;
  registers.lbaHigh = layout::kSmartSignatureHigh;
}

}  // namespace

SmartReadData::SmartReadData() : PIOReadCommand("SmartReadData") {
  smartRegisters(currentTaskFile, layout::kSmartReadData);
  currentTaskFile.sectorCount = 1;
  transferBlocks = 1;
}

SmartReadThresholds::SmartReadThresholds() : PIOReadCommand("SmartReadThresholds") {
  smartRegisters(currentTaskFile, layout::kSmartReadThresholds);
  currentTaskFile.sectorCount = 1;
  transferBlocks = 1;
}

SmartReturnStatus::SmartReturnStatus() : NonDataCommand("SmartReturnStatus") {
  smartRegisters(currentTaskFile, layout::kSmartReturnStatus);
}

}  // namespace orlo::commands::ata
