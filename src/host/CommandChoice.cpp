#include "host/CommandChoice.h"

#include <algorithm>
#include <optional>

#include "host/CommandLineParser.h"
#include "orlo/core/Strings.h"

namespace orlo::host {

namespace {

using orlo::core::strings::iequals;

// The names of the Name=Value words after the verb.
std::vector<std::string> propertyNames(const std::vector<std::string>& words) {
  std::vector<std::string> names;
  for (auto word = words.begin() + 1; word != words.end(); ++word) {
    const auto equals = word->find('=');
    if ((*word)[0] != '-' && equals != std::string::npos && equals > 0) {
      names.push_back(word->substr(0, equals));
    }
  }
  return names;
}

std::string joined(const std::vector<std::string>& names, const std::string& between,
                   const std::string& last) {
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    text += (i == 0 ? "" : i + 1 == names.size() ? last : between) + names[i];
  }
  return text;
}

// When several commands share the verb and none takes every property given, the refusal of
// the first one would name a property that another command takes: each command and the
// properties it takes say more.
std::optional<std::string> findUntakenProperties(const plugin::cli::CommandSpecs& specs,
                                                 const std::vector<std::string>& words) {
  const std::vector<std::string> given = propertyNames(words);
  std::vector<const plugin::cli::CommandSpec*> ofVerb;
  for (const auto& spec : specs) {
    if (iequals(spec->verb, words[0])) ofVerb.push_back(spec.get());
  }
  if (given.empty() || ofVerb.size() < 2) return std::nullopt;
  std::vector<std::string> takes;
  for (const auto* spec : ofVerb) {
    if (std::all_of(given.begin(), given.end(),
                    [&](const auto& name) { return spec->properties.contains(name); })) {
      return std::nullopt;
    }
    std::vector<std::string> names;
    for (const auto& part : spec->properties.elements) names.push_back(part->name);
    takes.push_back(spec->name + " takes " + (names.empty() ? "none" : joined(names, ", ", ", ")));
  }
  return "No command of 'orlo " + words[0] + "' takes the propert" +
         (given.size() == 1 ? "y " : "ies ") + joined(given, ", ", " and ") +
         (given.size() == 1 ? "" : " together") + ": " + joined(takes, "; ", "; ") + ".";
}

}  // namespace

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
  if (auto untaken = findUntakenProperties(specs, words)) return {nullptr, {}, *untaken};
  if (firstRefusal) return {nullptr, {}, *firstRefusal};
  return {nullptr, {}, "Unknown command '" + words[0] + "'; 'orlo help' lists the commands."};
}

}  // namespace orlo::host
