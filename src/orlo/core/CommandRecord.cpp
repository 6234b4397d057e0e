#include "orlo/core/CommandRecord.h"

namespace orlo::core {

CommandRecord::CommandRecord() : status(Status::success()) {}

CommandRecord::CommandRecord(const CommandRecord& other) : CommandRecord() {
  *this = other;
}

CommandRecord::~CommandRecord() = default;

CommandRecord& CommandRecord::operator=(const CommandRecord& other) {
  if (this == &other) return *this;
  command.reset();
  protocolResult.reset();
  commandPath.reset();
  status = other.status;
  inputPayload = other.inputPayload;
  outputPayload = other.outputPayload;
  duration = other.duration;
  startTime = other.startTime;
  endTime = other.endTime;
  recordFlag = other.recordFlag;
  if (other.command) command = other.command->clone();
  if (other.protocolResult) protocolResult = other.protocolResult->clone();
  if (other.commandPath) commandPath = other.commandPath->clone();
  return *this;
}

}  // namespace orlo::core
