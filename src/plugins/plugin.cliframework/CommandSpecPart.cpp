#include "plugins/plugin.cliframework/CommandSpecPart.h"

#include <utility>

namespace plugin::cli {

CommandSpecPart::CommandSpecPart(std::string name, bool required, std::string valueName,
                                 bool valueRequired, std::string description, bool commonOption,
                                 std::string shortName)
    : name(std::move(name)),
      shortName(std::move(shortName)),
      required(required),
      valueName(std::move(valueName)),
      valueRequired(valueRequired),
      commonOption(commonOption),
      description(std::move(description)) {}

}  // namespace plugin::cli
