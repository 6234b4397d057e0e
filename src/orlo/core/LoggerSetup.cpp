#include "orlo/core/LoggerSetup.h"

#include <boost/date_time/posix_time/posix_time_types.hpp>
#include <boost/log/core.hpp>
#include <boost/log/expressions.hpp>
#include <boost/log/sinks/sync_frontend.hpp>
#include <boost/log/sinks/text_ostream_backend.hpp>
#include <boost/log/support/date_time.hpp>
#include <boost/log/trivial.hpp>
#include <boost/log/utility/setup/common_attributes.hpp>
#include <cstdint>
#include <fstream>
#include <memory>

#include "orlo/core/Logging.h"

namespace orlo::core::logging {

namespace {

namespace expr = boost::log::expressions;
namespace sinks = boost::log::sinks;
namespace trivial = boost::log::trivial;

struct LoggerState {
  std::string logFileName = "orlo.log";
  uint8_t appendToLog = 1;  // non-zero appends, zero truncates
  bool logFileOpen = false;
  boost::shared_ptr<sinks::text_ostream_backend> textBackend;
  boost::shared_ptr<std::ofstream> logStream;
  boost::shared_ptr<std::ofstream> copyStream;  // LogCopy's file
};

LoggerState& state() {
  static LoggerState instance;
  return instance;
}

}  // namespace

void setupLogging() {
  auto core = boost::log::core::get();
  setEnabled(false);
  core->set_filter(trivial::severity >= trivial::trace);
  boost::log::add_common_attributes();

  auto& s = state();
  s.textBackend = boost::make_shared<sinks::text_ostream_backend>();
  s.textBackend->auto_flush(true);
  auto sink =
      boost::make_shared<sinks::synchronous_sink<sinks::text_ostream_backend>>(s.textBackend);
  sink->set_formatter(
      expr::stream << expr::format_date_time<boost::posix_time::ptime>("TimeStamp", "%H:%M:%S:%f")
                   << " [" << trivial::severity << "] " << expr::smessage);
  core->add_sink(sink);
}

void openLogFile() {
  auto& s = state();
  if (s.logFileName.empty()) return;
  if (s.logStream) closeLogFile();
  const auto mode = s.appendToLog != 0 ? std::ios::out | std::ios::app : std::ios::out;
  s.logStream = boost::make_shared<std::ofstream>(s.logFileName, mode);
  s.textBackend->add_stream(s.logStream);
  s.logFileOpen = true;
}

void closeLogFile() {
  auto& s = state();
  if (!s.logStream) return;
  s.textBackend->remove_stream(s.logStream);
  s.logStream->close();
  s.logFileOpen = false;
}

void initializeLogger(bool enabled, const std::string& fileName) {
  setupLogging();
  if (!enabled) return;
  setEnabled(true);

  auto& s = state();
  const std::string name = fileName;
  const bool wasOpen = s.logFileOpen;
  if (wasOpen) closeLogFile();
  s.logFileName = name;
  s.appendToLog = 1;
  if (wasOpen) openLogFile();
  openLogFile();
}

std::string logFileName() {
  return state().logFileName;
}

bool isLogFileOpen() {
  return state().logFileOpen;
}

LogCopy::LogCopy(const std::string& path) : wasEnabled_(isEnabled()) {
  auto& s = state();
  // Without a plug-in that set it up, the logging core has no sink yet.
  if (!s.textBackend) setupLogging();
  s.copyStream = boost::make_shared<std::ofstream>(path, std::ios::out | std::ios::trunc);
  s.textBackend->add_stream(s.copyStream);
  setEnabled(true);
}

LogCopy::~LogCopy() {
  auto& s = state();
  setEnabled(wasEnabled_);
  s.textBackend->remove_stream(s.copyStream);
  s.copyStream->close();
  s.copyStream.reset();
}

}  // namespace orlo::core::logging
