#include "plugins/plugin.cliframework/OutputOptionHelper.h"

#include <boost/format.hpp>
#include <regex>
#include <string>
#include <vector>

#include "orlo/core/Strings.h"
#include "plugins/plugin.cliframework/ResultMakers.h"
#include "plugins/plugin.cliframework/SharedParts.h"

namespace plugin::cli {

namespace {

// A blank, comma, semicolon or vertical bar separates values; a run of them
// counts as one separator.
std::vector<std::string> listedValues(const std::string& valueName) {
  static const std::regex value("[^ ,;|]+");
  std::vector<std::string> values;
  for (auto it = std::sregex_iterator(valueName.begin(), valueName.end(), value);
       it != std::sregex_iterator(); ++it) {
    values.push_back(it->str());
  }
  return values;
}

}  // namespace

std::shared_ptr<ResultBase> OutputOptionHelper::check(const ParsedCommand& command) {
  const auto argument = command.options.find(outputOption.name);
  if (!argument) return nullptr;

  // "'text', or 'json'": the comma stands before "or" whatever the count.
  std::string allowed;
  if (const auto part = spec->options.find(outputOption.name)) {
    const auto values = listedValues(part->valueName);
    for (size_t i = 0; i < values.size(); ++i) {
      if (orlo::core::strings::iequals(argument->value, values[i])) return nullptr;
      allowed += '\'' + values[i] + '\'';
      if (i + 1 < values.size()) allowed += ", ";
      if (i + 2 == values.size()) allowed += "or ";
    }
  }
  return makeSyntaxStatusResult(
      (boost::format("Option %s expects %s") % outputOption.name % allowed).str());
}

}  // namespace plugin::cli
