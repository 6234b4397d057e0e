#include "host/CommandChoice.h"

#include <optional>

#include "host/CommandLineParser.h"
#include "orlo/core/Strings.h"

namespace orlo::host {

CommandChoice chooseCommand(const plugin::cli::CommandSpecs& specs,
                            const std::vector<std::string>& words) {
  std::optional<std::string> firstRefusal;
  std::optional<std::string> closestRefusal;
  for (const auto& spec : specs) {
    if (!orlo::core::strings::iequals(spec->verb, words[0])) continue;
    ParseOutcome outcome = parseCommandLine(*spec, words);
    if (outcome.error.empty()) return {spec, std::move(outcome.command), ""};
    if (!firstRefusal) firstRefusal = outcome.error;
    if (!closestRefusal && outcome.knowsEveryWord) closestRefusal = outcome.error;
  }
  if (closestRefusal) return {nullptr, {}, *closestRefusal};
  if (firstRefusal) return {nullptr, {}, *firstRefusal};
  return {nullptr, {}, "Unknown command '" + words[0] + "'; 'orlo help' lists the commands."};
}

}  // namespace orlo::host
