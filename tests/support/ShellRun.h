#pragma once

#include <sys/wait.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "support/ScratchDirectory.h"

namespace orlo::testing {

// What a program run through the shell gave back.
struct Invocation {
  int exitCode;
  std::string out;
  std::string err;
};

// `word` as one word of a shell command line.
inline std::string shellQuoted(const std::string& word) {
  std::string result = "'";
  for (const char c : word) result += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return result + "'";
}

// Runs `words` (the program first) through the shell, after `prefix` (shell text,
// such as a command that runs it as another user), with the standard output and
// error caught in files of `outputs`.
inline Invocation runThroughShell(const std::vector<std::string>& words,
                                  const ScratchDirectory& outputs, const std::string& prefix = "") {
  std::string command = prefix;
  for (const auto& word : words) command += " " + shellQuoted(word);
  command += " >" + shellQuoted(outputs / "out") + " 2>" + shellQuoted(outputs / "err");
  const int status = std::system(command.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, readFile(outputs / "out"),
          readFile(outputs / "err")};
}

}  // namespace orlo::testing
