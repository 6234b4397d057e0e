#include "host/CommandLineParser.h"

#include <memory>

#include "host/PartUsage.h"
#include "orlo/core/Strings.h"

namespace orlo::host {

namespace {

using plugin::cli::CommandSpec;
using plugin::cli::CommandSpecPart;
using plugin::cli::CommandSpecPartList;
using plugin::cli::ParsedArgument;

std::shared_ptr<CommandSpecPart> findByEitherName(const CommandSpecPartList& parts,
                                                  const std::string& word) {
  if (auto part = parts.find(word)) return part;
  for (const auto& part : parts.elements) {
    if (!part->shortName.empty() && orlo::core::strings::iequals(part->shortName, word)) {
      return part;
    }
  }
  return nullptr;
}

bool startsWithDash(const std::string& word) {
  return !word.empty() && word[0] == '-';
}

// A word that can only be a value: neither an option nor a property.
bool isPlainWord(const std::string& word) {
  return !word.empty() && !startsWithDash(word) && word.find('=') == std::string::npos;
}

class Reader {
 public:
  Reader(const CommandSpec& spec, const std::vector<std::string>& words)
      : spec_(spec), words_(words) {}

  ParseOutcome read() {
    outcome_.command.verb = words_.empty() ? std::string() : words_[0];
    outcome_.command.command = spec_.name;
    for (next_ = 1; next_ < words_.size() && outcome_.error.empty();) {
      const std::string& word = words_[next_++];
      if (startsWithDash(word)) {
        readPart(word);
      } else if (word.find('=') != std::string::npos && word[0] != '=') {
        readProperty(word);
      } else {
        refuse("Unexpected word '" + word +
                   "': options start with '-' and properties are written Name=Value.",
               false);
      }
    }
    if (outcome_.error.empty()) checkRequired();
    return outcome_;
  }

 private:
  void readPart(const std::string& word) {
    auto part = findByEitherName(spec_.options, word);
    const bool isTarget = part == nullptr;
    if (isTarget) part = findByEitherName(spec_.targets, word);
    if (part == nullptr) {
      refuse("Unknown option '" + word + "' for " + commandLabel() + ".", false);
      return;
    }
    auto argument = std::make_shared<ParsedArgument>();
    argument->kind = part->partType.kind;
    argument->name = part->name;
    const bool hasNext = next_ < words_.size();
    if (part->valueRequired) {
      if (!hasNext || startsWithDash(words_[next_])) {
        refuse("Option " + part->name + " needs a value: " + usageOf(*part) + ".", true);
        return;
      }
      argument->value = words_[next_++];
    } else if (!part->valueName.empty() && hasNext && isPlainWord(words_[next_])) {
      argument->value = words_[next_++];
    }
    (isTarget ? outcome_.command.targets : outcome_.command.options).add(argument);
  }

  void readProperty(const std::string& word) {
    const auto equals = word.find('=');
    const auto part = spec_.properties.find(word.substr(0, equals));
    if (part == nullptr) {
      refuse("Unknown property '" + word.substr(0, equals) + "' for " + commandLabel() + ".",
             false);
      return;
    }
    auto argument = std::make_shared<ParsedArgument>();
    argument->kind = part->partType.kind;
    argument->name = part->name;
    argument->value = word.substr(equals + 1);
    outcome_.command.properties.add(argument);
  }

  void checkRequired() {
    const std::pair<const CommandSpecPartList*, const plugin::cli::ParsedArgumentList*> lists[] = {
        {&spec_.options, &outcome_.command.options},
        {&spec_.targets, &outcome_.command.targets},
        {&spec_.properties, &outcome_.command.properties}};
    for (const auto& [parts, given] : lists) {
      for (const auto& part : parts->elements) {
        if (part->required && !given->contains(part->name)) {
          refuse("Missing required " + describePart(*part) + " for " + commandLabel() + ".", true);
          return;
        }
      }
    }
  }

  std::string commandLabel() const { return "'orlo " + spec_.verb + "' (" + spec_.name + ")"; }

  void refuse(std::string message, bool knowsEveryWord) {
    outcome_.error = std::move(message);
    outcome_.knowsEveryWord = knowsEveryWord;
  }

  const CommandSpec& spec_;
  const std::vector<std::string>& words_;
  std::size_t next_ = 1;
  ParseOutcome outcome_;
};

}  // namespace

ParseOutcome parseCommandLine(const plugin::cli::CommandSpec& spec,
                              const std::vector<std::string>& words) {
  return Reader(spec, words).read();
}

}  // namespace orlo::host
