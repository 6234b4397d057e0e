#pragma once

#include "plugins/plugin.cliframework/CommandSpecPart.h"

namespace plugin::cli {

class OptionCommandSpecPart : public CommandSpecPart {
 public:
  OptionCommandSpecPart(std::string name, bool required, std::string valueName, bool valueRequired,
                        std::string description, bool commonOption, std::string shortName)
      : CommandSpecPart(std::move(name), required, std::move(valueName), valueRequired,
                        std::move(description), commonOption, std::move(shortName)) {
    partType.kind = optionKind;
  }
  ~OptionCommandSpecPart() override = default;
};

}  // namespace plugin::cli
