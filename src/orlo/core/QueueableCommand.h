#pragma once

#include <cstdint>
#include <string>

#include "orlo/core/Command.h"
#include "orlo/core/Payload.h"

namespace orlo::core {

// A command that a device object may queue. The block of queue fields belongs to
// the device object: the library zeroes it, copies it with the command and never
// reads it.
class QueueableCommand : public Command {
 public:
  QueueableCommand(std::string protocol, std::string name);

  // Copies the queue block, then the protocol and the name.
  virtual void copyQueueFields(const QueueableCommand& other);

  uint64_t queueWord0 = 0;
  uint64_t queueWord1 = 0;
  uint32_t queueWord2 = 0;
  Payload queuePayload;
  uint32_t queueWord3 = 0;
  uint32_t queueWord4 = 0;
  uint64_t queueWord5 = 0;
  uint32_t queueWord6 = 0;

 protected:
  QueueableCommand(const QueueableCommand&) = default;
  QueueableCommand& operator=(const QueueableCommand&) = default;
};

}  // namespace orlo::core
