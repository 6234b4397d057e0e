#include "host/HelpWriter.h"

#include <algorithm>
#include <sstream>

#include "host/DestinationGuard.h"
#include "host/HostSettings.h"
#include "host/PartUsage.h"
#include "host/PathGuard.h"
#include "orlo/core/Strings.h"
#include "plugins/plugin.cliframework/SharedParts.h"
#include "plugins/plugin.cliframework/Vocabulary.h"

namespace orlo::host {

namespace {

using orlo::core::strings::iequals;
using plugin::cli::CommandSpec;
using plugin::cli::CommandSpecPart;
using plugin::cli::CommandSpecPartList;
namespace words = plugin::cli::words;

bool isHelpWord(const std::string& word) {
  return iequals(word, plugin::cli::verbs::help) || iequals(word, plugin::cli::helpOption.name) ||
         iequals(word, plugin::cli::helpOption.shortName);
}

// One row of a table: the part as it is written, whether it is required, what it does.
struct Row {
  std::string usage;
  std::string required;
  std::string description;
};

void writeTable(std::ostream& out, const std::string& indent, const std::vector<Row>& rows) {
  std::size_t width = 0;
  for (const auto& row : rows) width = std::max(width, row.usage.size());
  for (const auto& row : rows) {
    out << indent << row.usage << std::string(width - row.usage.size() + 2, ' ') << row.required
        << std::string(words::required.size() - row.required.size() + 2, ' ') << row.description
        << "\n";
  }
}

void writeParts(std::ostream& out, const std::string& title, const std::string& column,
                const CommandSpecPartList& parts) {
  if (parts.elements.empty()) return;
  std::vector<Row> rows = {{column, words::required, words::description}};
  for (const auto& part : parts.elements) {
    std::string usage = usageOf(*part);
    if (!part->shortName.empty()) usage += ", " + part->shortName;
    rows.push_back({usage, part->required ? words::trueWord : words::falseWord, part->description});
  }
  out << "  " << title << ":\n";
  writeTable(out, "    ", rows);
}

void writeIndented(std::ostream& out, const std::string& lines) {
  std::istringstream in(lines);
  for (std::string line; std::getline(in, line);) out << "    " << line << "\n";
}

void writeRefusals(std::ostream& out, const CommandSpec& spec) {
  const std::vector<std::string> rules = refusalsOf(spec);
  if (rules.empty()) return;
  out << "  " << refusalsHeading << ":\n";
  for (const auto& rule : rules) writeIndented(out, rule);
}

void writeCommand(std::ostream& out, const CommandSpec& spec) {
  out << "\n" << words::command << ": " << spec.name << "\n";
  out << "  " << words::verb << ": " << spec.verb << "\n";
  out << "  " << words::description << ": " << spec.description << "\n";
  out << "  " << words::synopsis << ": " << synopsisOf(spec) << "\n";
  writeParts(out, words::options, words::option, spec.options);
  writeParts(out, words::targets, words::target, spec.targets);
  writeParts(out, words::properties, words::property, spec.properties);
  writeRefusals(out, spec);
}

void writeUsage(std::ostream& out) {
  std::string lead = words::usage + ": ";
  for (const auto& line : usageLines()) {
    out << lead << line << "\n";
    lead.assign(lead.size(), ' ');
  }
  out << "\nHost options (with any command):\n";
  std::vector<Row> rows = {{words::option, words::required, words::description}};
  for (const auto& flag : hostFlags) {
    rows.push_back(
        {std::string(flag.name) + " <" + flag.valueName + ">", words::falseWord, flag.description});
  }
  writeTable(out, "  ", rows);
}

// Whether one word of `orlo help ...` picks this command.
bool picks(const std::string& word, const CommandSpec& spec) {
  const auto equals = word.find('=');
  if (equals == std::string::npos) {
    return iequals(word, spec.verb) || iequals(word, spec.name);
  }
  const std::string name = word.substr(0, equals);
  const std::string value = word.substr(equals + 1);
  if (iequals(name, plugin::cli::verbProperty.name)) return iequals(value, spec.verb);
  if (iequals(name, plugin::cli::nameProperty.name)) return iequals(value, spec.name);
  return false;
}

bool isAskedFor(const std::vector<std::string>& words, const CommandSpec& spec) {
  if (words.empty()) return true;
  if (!isHelpWord(words[0])) return iequals(words[0], spec.verb);
  return std::all_of(words.begin() + 1, words.end(),
                     [&](const std::string& word) { return picks(word, spec); });
}

}  // namespace

const char* const refusalsHeading = "Refused before anything runs (exit code 2)";

std::vector<std::string> refusalsOf(const CommandSpec& spec) {
  const auto& options = spec.options.elements;
  const auto guards = [&](bool (*guarded)(const std::string&)) {
    return std::any_of(options.begin(), options.end(),
                       [&](const auto& part) { return guarded(part->name); });
  };
  std::vector<std::string> rules;
  if (guards(isGuardedPath)) rules.push_back(pathRules);
  if (guards(isGuardedDestination)) rules.push_back(destinationRules);
  return rules;
}

const std::vector<std::string>& usageLines() {
  static const std::vector<std::string> lines = {
      "orlo " + plugin::cli::messages::usageLine,
      "orlo " + plugin::cli::verbs::help + " [<verb>|<name>] [" +
          usageOf(plugin::cli::verbProperty) + "] [" + usageOf(plugin::cli::nameProperty) + "]",
      "orlo <verb> ... " + plugin::cli::helpOption.name,
  };
  return lines;
}

std::string synopsisOf(const CommandSpec& spec) {
  std::string synopsis = "orlo " + spec.verb;
  for (const auto* list : {&spec.options, &spec.targets, &spec.properties}) {
    for (const auto& part : list->elements) {
      synopsis += part->required ? " " + usageOf(*part) : " [" + usageOf(*part) + "]";
    }
  }
  return synopsis;
}

bool asksForHelp(const std::vector<std::string>& words) {
  if (words.empty() || isHelpWord(words[0])) return true;
  return std::any_of(words.begin() + 1, words.end(), [](const std::string& word) {
    return iequals(word, plugin::cli::helpOption.name) ||
           iequals(word, plugin::cli::helpOption.shortName);
  });
}

std::optional<std::string> findEmptyHelp(const plugin::cli::CommandSpecs& specs,
                                         const std::vector<std::string>& words) {
  const auto asked = [&](const std::vector<std::string>& question) {
    return std::any_of(specs.begin(), specs.end(),
                       [&](const auto& spec) { return isAskedFor(question, *spec); });
  };
  if (asked(words)) return std::nullopt;
  const std::string why = plugin::cli::messages::noCommandsToDisplay + ": ";
  const std::string lists = "; 'orlo help' lists the commands.";
  if (!isHelpWord(words[0])) return why + "no command has the verb '" + words[0] + "'" + lists;
  std::string named;
  for (auto word = words.begin() + 1; word != words.end(); ++word) {
    if (!asked({words[0], *word})) return why + "no command answers to '" + *word + "'" + lists;
    named += (named.empty() ? "'" : " and '") + *word + "'";
  }
  return why + "no one command answers to " + named + lists;
}

std::string writeHelp(const plugin::cli::CommandSpecs& specs,
                      const std::vector<std::string>& words) {
  std::ostringstream out;
  writeUsage(out);
  for (const auto& spec : specs) {
    if (isAskedFor(words, *spec)) writeCommand(out, *spec);
  }
  return out.str();
}

}  // namespace orlo::host
