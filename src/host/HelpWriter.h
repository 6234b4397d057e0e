#pragma once

#include <optional>
#include <string>
#include <vector>

#include "plugins/plugin.cliframework/CommandSpec.h"

namespace orlo::host {

// The ways to call orlo that its help opens with: "orlo <verb>...", help, "-help".
const std::vector<std::string>& usageLines();

// A command as it is called: "orlo update [-help] -source <path> ...", the optional
// parts in brackets.
std::string synopsisOf(const plugin::cli::CommandSpec& spec);

// The paths that the host refuses for this command and why, as lines without indent
// in items that start with "- ": the rules of the path and destination guards that
// look at its options.
std::vector<std::string> refusalsOf(const plugin::cli::CommandSpec& spec);
extern const char* const refusalsHeading;

// True for `orlo`, `orlo help ...`, `orlo -help ...` and `orlo <verb> ... -help`
// (or "-h", in any case).
bool asksForHelp(const std::vector<std::string>& words);

// Why the help that `words` ask for would show no command: a word that picks none, or
// words that no one command answers to all at once. Nothing when it shows one.
std::optional<std::string> findEmptyHelp(const plugin::cli::CommandSpecs& specs,
                                         const std::vector<std::string>& words);

// The usage of orlo and of the commands that `words` ask about: after "help" or
// "-help", those that every one of "Verb=<verb>", "Name=<name>" and bare words (a
// verb or a name) picks, all of them if there are none; after a verb, the commands
// of that verb. Each command shows its synopsis, a table of its options, targets
// and properties, and the paths that the host refuses for it.
std::string writeHelp(const plugin::cli::CommandSpecs& specs,
                      const std::vector<std::string>& words);

}  // namespace orlo::host
