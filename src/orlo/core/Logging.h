#pragma once

#include <cstdint>
#include <sstream>
#include <string>

// Log statements of the toolkit. This header stays light: the text of a record is
// composed here, but only when logging is on, and handed to the logger in Logging.cpp.

namespace orlo::core::logging {

// Numbered as the logger's own severity levels.
enum class Severity { trace = 0, debug = 1, info = 2, warning = 3, error = 4, fatal = 5 };

// True once the host has switched logging on, until it is switched off again.
bool isEnabled();

// Writes one record whose text is already composed.
void write(Severity severity, const std::string& text);

// The text behind the last ':' of a qualified function name.
std::string reduceFunctionName(const std::string& qualifiedName);

// Writes a fatal record and, whether logging is on or not, the same text after
// "[fatal] " on the standard error stream, with no line ending.
void reportFatal(const char* file, int32_t line, const std::string& function,
                 const std::string& text);

// A source file's path with all folders removed.
constexpr const char* fileName(const char* path) {
  const char* name = path;
  for (const char* p = path; *p != '\0'; ++p) {
    if (*p == '/' || *p == '\\') name = p + 1;
  }
  return name;
}

}  // namespace orlo::core::logging

// ORLO_LOG(error, "value " << value): one record, "file(line) function: " then the parts.
// Nothing is composed while logging is off.
#define ORLO_LOG_AS(function, severity, ...)                                                      \
  do {                                                                                            \
    if (::orlo::core::logging::isEnabled()) {                                                     \
      ::std::ostringstream orloLogText;                                                           \
      orloLogText << ::orlo::core::logging::fileName(__FILE__) << "(" << __LINE__ << ") "         \
                  << ::orlo::core::logging::reduceFunctionName(function) << ": " << __VA_ARGS__;  \
      ::orlo::core::logging::write(::orlo::core::logging::Severity::severity, orloLogText.str()); \
    }                                                                                             \
  } while (false)

#define ORLO_LOG(severity, ...) ORLO_LOG_AS(__func__, severity, __VA_ARGS__)

#define ORLO_REPORT_FATAL(text)                                                           \
  ::orlo::core::logging::reportFatal(::orlo::core::logging::fileName(__FILE__), __LINE__, \
                                     __func__, text)
