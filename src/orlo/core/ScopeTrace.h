#pragma once

#include <cstdint>
#include <string>

#include "orlo/core/Logging.h"

namespace orlo::core {

// Marks the entry and the exit of a scope in the log, at level debug. The line number
// is not kept, so the exit record has none; it is written also when the scope is
// left by an exception.
class ScopeTrace {
 public:
  ScopeTrace(std::string file, int32_t line, std::string function);
  ~ScopeTrace();
  ScopeTrace(const ScopeTrace&) = delete;
  ScopeTrace& operator=(const ScopeTrace&) = delete;

 private:
  std::string file_;
  std::string function_;
};

}  // namespace orlo::core

#define ORLO_SCOPE_TRACE()                                                                     \
  ::orlo::core::ScopeTrace orloScopeTrace(::orlo::core::logging::fileName(__FILE__), __LINE__, \
                                          ::orlo::core::logging::reduceFunctionName(__func__))
