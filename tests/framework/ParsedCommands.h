#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "plugins/plugin.cliframework/FeatureBase.h"
#include "plugins/plugin.cliframework/StatusResult.h"

using Arguments = std::vector<std::pair<std::string, std::string>>;

// A parsed command line with these options, targets and properties, repeats kept.
inline plugin::cli::ParsedCommand parsed(const Arguments& options, const Arguments& targets = {},
                                         const Arguments& properties = {}) {
  plugin::cli::ParsedCommand command;
  const std::pair<plugin::cli::ParsedArgumentList*, const Arguments*> lists[] = {
      {&command.options, &options},
      {&command.targets, &targets},
      {&command.properties, &properties}};
  for (const auto& [list, arguments] : lists) {
    for (const auto& [name, value] : *arguments) {
      list->elements.push_back(std::make_shared<plugin::cli::ParsedArgument>(
          plugin::cli::ParsedArgument{0, name, value}));
    }
  }
  return command;
}

// The message and type of a result, or "pass" for none.
inline std::string outcome(const std::shared_ptr<plugin::cli::ResultBase>& result) {
  return result ? result->value + " / " +
                      std::to_string(static_cast<plugin::cli::StatusResult&>(*result).type)
                : "pass";
}
