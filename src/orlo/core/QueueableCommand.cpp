#include "orlo/core/QueueableCommand.h"

#include <utility>

namespace orlo::core {

QueueableCommand::QueueableCommand(std::string protocol, std::string name)
    : Command(std::move(protocol), std::move(name)) {}

void QueueableCommand::copyQueueFields(const QueueableCommand& other) {
  queueWord0 = other.queueWord0;
  queueWord1 = other.queueWord1;
  queueWord2 = other.queueWord2;
  queuePayload = other.queuePayload;
  queueWord3 = other.queueWord3;
  queueWord4 = other.queueWord4;
  queueWord5 = other.queueWord5;
  queueWord6 = other.queueWord6;
  copyCommandFields(other);
}

}  // namespace orlo::core
