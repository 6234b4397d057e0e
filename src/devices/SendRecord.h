#pragma once

#include <memory>

#include "orlo/core/Command.h"
#include "orlo/core/CommandRecord.h"
#include "orlo/core/Payload.h"
#include "orlo/core/ProtocolResult.h"
#include "orlo/core/Status.h"

namespace orlo::devices {

// The record of a send as every backend fills it: a copy of the command, the
// caller's buffer as input, and the start time. The backend sets the status and
// the output, then calls finishRecord.
core::CommandRecord beginRecord(const core::Command& command, const core::Payload& dataOut);
// The end time and the duration in microseconds.
void finishRecord(core::CommandRecord& record);

// What a drive's completion of a command says, for the record: the outcome and,
// when the completion carries more than that, the completion itself.
struct DriveReply {
  core::Status status = core::Status::success();
  std::unique_ptr<core::ProtocolResult> protocolResult;
};

}  // namespace orlo::devices
