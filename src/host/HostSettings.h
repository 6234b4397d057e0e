#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "devices/DriveChoice.h"

namespace orlo::host {

// The host's own flags, which may stand anywhere on the command line:
//   -output text|json|jsontree|xml|csv   the format of the result (text when absent)
//   -plugin-dir <path>          the folder whose libraries are loaded as plug-ins
//   -log-file <path>            switch logging on and append it to this file
//   -maker-vendors <ids>        PCI vendor IDs whose drives are the maker's own
//   -maker-vendors-file <path>  the same, read from a file
struct HostSettings {
  std::filesystem::path pluginDirectory;
  std::string logFile;  // empty: nothing is logged
  std::string outputFormat = "text";
  bool outputGiven = false;
  // Where drives are looked for; no vendor is the maker's unless a flag says so.
  orlo::devices::DriveOptions drives;
};

// The flags and descriptions of the host, for the help.
struct HostFlag {
  const char* name;
  const char* valueName;
  const char* description;
};
extern const std::vector<HostFlag> hostFlags;

// Moves the host's flags out of `words` into `settings`, leaving the command's own
// words in their order. Gives the message for a flag without its value, an output
// format that is not one of the four, a vendor list that does not read or names no
// vendor, or a log file that cannot be appended to.
std::optional<std::string> takeHostFlags(std::vector<std::string>& words, HostSettings& settings);

// Whether `words` hold "-output json" or "jsontree" (in any case), for a refusal of the host's
// flags that came before "-output" was read.
bool asksForJson(const std::vector<std::string>& words);

}  // namespace orlo::host
