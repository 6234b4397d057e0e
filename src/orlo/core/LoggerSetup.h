#pragma once

#include <string>

// Set-up of the log file. These run only from the host's call of initializeLogger,
// before any feature runs, and take no lock.

namespace orlo::core::logging {

// Switches logging off, lets every severity through, and adds a sink whose auto-flushed
// backend writes "HH:MM:SS:ffffff [severity] message" lines.
void setupLogging();

// Opens the log file (appending, unless told otherwise) and attaches it to the backend.
// An empty file name leaves the file closed.
void openLogFile();

// Detaches the log file from the backend and closes it.
void closeLogFile();

// The steps of the exported initialize_logger: set up, and, when enabled, switch
// logging on and (re)open the named file in append mode.
void initializeLogger(bool enabled, const std::string& fileName);

// Switches the logging core, and so every log statement, on or off.
void setEnabled(bool enabled);

std::string logFileName();
bool isLogFileOpen();

// A copy of the log in a file of its own, for one piece of work such as an incident
// report: from construction every record also goes to `path` (created, or emptied),
// with logging switched on; on destruction the file is closed and logging is on or
// off as it was. The host's own log file, when there is one, gets the records as well.
class LogCopy {
 public:
  explicit LogCopy(const std::string& path);
  ~LogCopy();
  LogCopy(const LogCopy&) = delete;
  LogCopy& operator=(const LogCopy&) = delete;

 private:
  bool wasEnabled_;
};

}  // namespace orlo::core::logging
