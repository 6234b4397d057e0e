#pragma once

#include "orlo/core/Command.h"
#include "orlo/core/CommandRecord.h"
#include "orlo/core/Payload.h"

namespace orlo::devices {

// The record of a send as every backend fills it: a copy of the command, the
// caller's buffer as input, and the start time. The backend sets the status and
// the output, then calls finishRecord.
core::CommandRecord beginRecord(const core::Command& command, const core::Payload& dataOut);
// The end time and the duration in microseconds.
void finishRecord(core::CommandRecord& record);

}  // namespace orlo::devices
