#include "orlo/core/Logging.h"

#include <atomic>
#include <boost/log/core.hpp>
#include <boost/log/sources/global_logger_storage.hpp>
#include <boost/log/sources/record_ostream.hpp>
#include <boost/log/sources/severity_logger.hpp>
#include <boost/log/trivial.hpp>
#include <iostream>

#include "orlo/core/LoggerSetup.h"

namespace orlo::core::logging {

namespace {

namespace trivial = boost::log::trivial;

BOOST_LOG_INLINE_GLOBAL_LOGGER_DEFAULT(
    toolkitLogger, boost::log::sources::severity_logger_mt<trivial::severity_level>)

// Mirrors the switch of the logging core. Until the host switches logging on, no record
// may be opened at all: the core would hand it to its default console sink.
std::atomic<bool> gEnabled{false};

}  // namespace

bool isEnabled() {
  return gEnabled.load(std::memory_order_relaxed);
}

void setEnabled(bool enabled) {
  boost::log::core::get()->set_logging_enabled(enabled);
  gEnabled.store(enabled, std::memory_order_relaxed);
}

void write(Severity severity, const std::string& text) {
  if (!isEnabled()) return;
  auto& logger = toolkitLogger::get();
  BOOST_LOG_SEV(logger, static_cast<trivial::severity_level>(severity)) << text;
}

std::string reduceFunctionName(const std::string& qualifiedName) {
  const auto colon = qualifiedName.rfind(':');
  return colon == std::string::npos ? qualifiedName : qualifiedName.substr(colon + 1);
}

void reportFatal(const char* file, int32_t line, const std::string& function,
                 const std::string& text) {
  const std::string record = std::string(file) + "(" + std::to_string(line) + ") " +
                             reduceFunctionName(function) + ": " + text;
  write(Severity::fatal, record);
  std::cerr << ("[fatal] " + record);
}

}  // namespace orlo::core::logging
