#pragma once

#include "plugins/plugin.cliframework/CommandSpecPart.h"

namespace plugin::cli {

class PropertyCommandSpecPart : public CommandSpecPart {
 public:
  PropertyCommandSpecPart(std::string name, bool required, std::string valueName,
                          bool valueRequired, std::string description, bool commonOption,
                          std::string shortName)
      : CommandSpecPart(std::move(name), required, std::move(valueName), valueRequired,
                        std::move(description), commonOption, std::move(shortName)) {
    partType.kind = propertyKind;
  }

  // A property made from one of a feature's attributes: it takes its value by
  // the property syntax, not as an option value, and is common to the command.
  PropertyCommandSpecPart(std::string name, bool required, std::string valueName,
                          std::string description)
      : PropertyCommandSpecPart(std::move(name), required, std::move(valueName), false,
                                std::move(description), true, std::string()) {}
  ~PropertyCommandSpecPart() override = default;
};

}  // namespace plugin::cli
