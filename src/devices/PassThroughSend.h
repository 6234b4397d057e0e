#pragma once

#include <cstdint>
#include <utility>

#include "devices/DriveNode.h"
#include "devices/SendRecord.h"
#include "orlo/core/Command.h"
#include "orlo/core/CommandRecord.h"
#include "orlo/core/OwnStatuses.h"
#include "orlo/core/Payload.h"
#include "orlo/core/Status.h"

namespace orlo::devices {

// The send of a backend that hands each command to the kernel in one ioctl on its
// node. `Exchange` is the backend's protocol, which gives
//   Exchange::Command                      the protocol's command type;
//   static uint32_t transferLength(cmd)    the bytes that the command moves;
//   Exchange(cmd, data, length)            the kernel's request for the command,
//                                          with its buffer (null when length is 0);
//   unsigned long operation()              the ioctl, and
//   void* argument()                       its argument, the request;
//   DriveReply reply(int result) const     the completion, after an ioctl that
//                                          returned `result` (0 or more).
// A command of another type fails with 35. A command with data for the drive sends
// the caller's buffer, which must hold the transfer; any other gets a zero-filled
// one, handed back as the output when the command reads and succeeds. A failed
// ioctl fails the command with the node's name and the system's reason.
template <typename Exchange>
core::CommandRecord passThroughSend(const DriveNode& node, core::Command& command,
                                    const core::Payload& dataOut);

namespace detail {

template <typename Exchange>
void passThrough(const DriveNode& node, const core::Command& command, const core::Payload& dataOut,
                 core::CommandRecord& record) {
  const auto* typed = dynamic_cast<const typename Exchange::Command*>(&command);
  if (typed == nullptr) {
    record.status = core::Status(35, "Device does not support this command set.");
    return;
  }
  const uint32_t length = Exchange::transferLength(*typed);
  const core::Payload buffer = typed->dataOut ? dataOut : core::Payload(length);
  if (buffer.size() < length) {
    record.status = core::bufferShorterThanTransfer();
    return;
  }
  Exchange exchange(*typed, length > 0 ? buffer.data() : nullptr, length);
  const int result = node.ioctl(exchange.operation(), exchange.argument());
  if (result < 0) {
    record.status = nodeFailure(core::Status::retrieveDataFailed(),
                                "send " + command.name() + " to", node.path(), -result);
    return;
  }
  DriveReply reply = exchange.reply(result);
  record.status = reply.status;
  record.protocolResult = std::move(reply.protocolResult);
  if (core::succeeded(record.status) && typed->dataIn) record.outputPayload = buffer;
}

}  // namespace detail

template <typename Exchange>
core::CommandRecord passThroughSend(const DriveNode& node, core::Command& command,
                                    const core::Payload& dataOut) {
  core::CommandRecord record = beginRecord(command, dataOut);
  detail::passThrough<Exchange>(node, command, dataOut, record);
  finishRecord(record);
  return record;
}

}  // namespace orlo::devices
