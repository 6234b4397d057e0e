#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace orlo::host {

// The host's own flags, which may stand anywhere on the command line:
//   -output text|json|xml|csv   the format of the result (text when absent)
//   -plugin-dir <path>          the folder whose libraries are loaded as plug-ins
//   -log-file <path>            switch logging on and append it to this file
struct HostSettings {
  std::filesystem::path pluginDirectory;
  std::string logFile;  // empty: nothing is logged
  std::string outputFormat = "text";
  bool outputGiven = false;
};

// The flags and descriptions of the host, for the help.
struct HostFlag {
  const char* name;
  const char* valueName;
  const char* description;
};
extern const std::vector<HostFlag> hostFlags;

// Moves the host's flags out of `words` into `settings`, leaving the command's own
// words in their order. Gives the message for a flag without its value or an
// output format that is not one of the four.
std::optional<std::string> takeHostFlags(std::vector<std::string>& words, HostSettings& settings);

}  // namespace orlo::host
