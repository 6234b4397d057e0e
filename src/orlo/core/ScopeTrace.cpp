#include "orlo/core/ScopeTrace.h"

namespace orlo::core {

ScopeTrace::ScopeTrace(std::string file, int32_t line, std::string function)
    : file_(std::move(file)), function_(std::move(function)) {
  if (logging::isEnabled()) {
    logging::write(logging::Severity::debug,
                   file_ + "(" + std::to_string(line) + ") " + function_ + ": Entering");
  }
}

ScopeTrace::~ScopeTrace() {
  if (logging::isEnabled()) {
    logging::write(logging::Severity::debug, file_ + " " + function_ + ": Exiting");
  }
}

}  // namespace orlo::core
