#include "host/HostSettings.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "orlo/core/Strings.h"
#include "plugins/plugin.cliframework/Vocabulary.h"

namespace orlo::host {

namespace {

using orlo::core::strings::iequals;

const std::string outputFlag = "-output";
const std::string pluginDirFlag = "-plugin-dir";
const std::string logFileFlag = "-log-file";
const std::string makerVendorsFlag = "-maker-vendors";
const std::string makerVendorsFileFlag = "-maker-vendors-file";

const std::vector<std::string> formats = {plugin::cli::formats::text, plugin::cli::formats::json,
                                          plugin::cli::formats::jsonTree, plugin::cli::formats::xml,
                                          plugin::cli::formats::csv};

bool isHostFlag(const std::string& word) {
  return iequals(word, outputFlag) || iequals(word, pluginDirFlag) || iequals(word, logFileFlag) ||
         iequals(word, makerVendorsFlag) || iequals(word, makerVendorsFileFlag);
}

std::string cannotAppend(const std::string& path, int error) {
  return "Cannot append to " + path + ": " + std::strerror(error) + ".";
}

// The logger drops what it cannot write without a word, so a path it could not append to
// is refused here, before anything runs: a directory, a file in a missing folder, one
// that may not be written, a FIFO that no program reads (opening it would wait for one;
// a pipe with a reader, as /dev/stderr often is, takes the log). Nothing is created, so
// that a refused line leaves no trace.
std::optional<std::string> checkLogFile(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) == 0) {
    if (S_ISDIR(status.st_mode)) return cannotAppend(path, EISDIR);
    if (S_ISFIFO(status.st_mode)) {
      const int pipe = open(path.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
      if (pipe < 0 && errno == ENXIO) return "Cannot append to " + path + ": no program reads it.";
      if (pipe < 0) return cannotAppend(path, errno);
      close(pipe);
    }
    if (access(path.c_str(), W_OK) != 0) return cannotAppend(path, errno);
    return std::nullopt;
  }
  if (errno != ENOENT) return cannotAppend(path, errno);
  const std::filesystem::path parent = std::filesystem::path(path).parent_path();
  const std::string folder = parent.empty() ? "." : parent.string();
  if (stat(folder.c_str(), &status) != 0) return cannotAppend(path, errno);
  if (!S_ISDIR(status.st_mode)) return cannotAppend(path, ENOTDIR);
  if (access(folder.c_str(), W_OK) != 0) return cannotAppend(path, errno);
  return std::nullopt;
}

std::optional<std::string> apply(const std::string& flag, const std::string& value,
                                 HostSettings& settings) {
  if (iequals(flag, pluginDirFlag)) {
    settings.pluginDirectory = value;
  } else if (iequals(flag, logFileFlag)) {
    if (auto error = checkLogFile(value)) return "Option " + flag + ": " + *error;
    settings.logFile = value;
  } else if (iequals(flag, makerVendorsFlag) || iequals(flag, makerVendorsFileFlag)) {
    auto& makers = settings.drives.makers;
    const auto read = iequals(flag, makerVendorsFlag) ? makers.add(value) : makers.addFile(value);
    if (!orlo::core::succeeded(read)) return "Option " + flag + ": " + read.message();
  } else {
    const auto format = std::find_if(formats.begin(), formats.end(),
                                     [&](const auto& known) { return iequals(known, value); });
    if (format == formats.end()) {
      return "Option -output expects 'text', 'json', 'jsontree', 'xml', or 'csv', not '" + value +
             "'.";
    }
    settings.outputFormat = *format;
    settings.outputGiven = true;
  }
  return std::nullopt;
}

}  // namespace

const std::vector<HostFlag> hostFlags = {
    {"-output", "text|json|jsontree|xml|csv",
     "Format of the result (default text); jsontree is JSON of the labelled elements."},
    {"-plugin-dir", "path", "Folder of the plug-ins (default PREFIX/lib/orlo/plugins)."},
    {"-log-file", "path", "Append a log to this file (default: no log)."},
    {"-maker-vendors", "ids",
     "PCI vendor IDs, in hex and separated by commas, whose drives are the maker's own; only "
     "those give their log pages (default: none)."},
    {"-maker-vendors-file", "path",
     "The same IDs read from a regular file of at most 64 KiB, one or more a line; \"#\" "
     "starts a comment."},
};

std::optional<std::string> takeHostFlags(std::vector<std::string>& words, HostSettings& settings) {
  std::vector<std::string> rest;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (!isHostFlag(words[i])) {
      rest.push_back(words[i]);
      continue;
    }
    if (i + 1 == words.size() || words[i + 1].empty() || words[i + 1][0] == '-') {
      return "Option " + words[i] + " needs a value.";
    }
    if (auto error = apply(words[i], words[i + 1], settings)) return error;
    ++i;
  }
  words = std::move(rest);
  return std::nullopt;
}

bool asksForJson(const std::vector<std::string>& words) {
  for (std::size_t i = 0; i + 1 < words.size(); ++i) {
    if (iequals(words[i], outputFlag) && (iequals(words[i + 1], plugin::cli::formats::json) ||
                                          iequals(words[i + 1], plugin::cli::formats::jsonTree))) {
      return true;
    }
  }
  return false;
}

}  // namespace orlo::host
