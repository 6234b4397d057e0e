#include "orlo/core/Command.h"

#include <utility>

namespace orlo::core {

Command::Command(std::string protocol, std::string name)
    : protocol_(std::move(protocol)), name_(std::move(name)) {}

Command::~Command() = default;

void Command::copyCommandFields(const Command& other) {
  protocol_ = other.protocol_;
  name_ = other.name_;
}

}  // namespace orlo::core
