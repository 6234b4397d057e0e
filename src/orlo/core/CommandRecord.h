#pragma once

#include <boost/date_time/posix_time/posix_time_types.hpp>
#include <cstdint>
#include <memory>

#include "orlo/core/Command.h"
#include "orlo/core/CommandPath.h"
#include "orlo/core/Payload.h"
#include "orlo/core/ProtocolResult.h"
#include "orlo/core/Status.h"

namespace orlo::core {

// What a Device answers to a send. Features read `status` and `outputPayload`.
// The record owns its command, protocol result and path; a copy gets clones of
// them, never shares, while the two payloads are shared handles.
class CommandRecord {
 public:
  CommandRecord();
  CommandRecord(const CommandRecord& other);
  CommandRecord(CommandRecord&& other) = default;
  CommandRecord& operator=(const CommandRecord& other);
  CommandRecord& operator=(CommandRecord&& other) = default;
  ~CommandRecord();

  std::unique_ptr<Command> command;
  Status status;
  Payload inputPayload;
  Payload outputPayload;
  std::unique_ptr<ProtocolResult> protocolResult;
  uint64_t duration = 0;
  boost::posix_time::ptime startTime;
  boost::posix_time::ptime endTime;
  std::unique_ptr<CommandPath> commandPath;
  uint8_t recordFlag = 0;
};

}  // namespace orlo::core
