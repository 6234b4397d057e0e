#pragma once

#include "plugins/plugin.cliframework/CommandSpecPart.h"

namespace plugin::cli {

class TargetCommandSpecPart : public CommandSpecPart {
 public:
  TargetCommandSpecPart(std::string name, bool required, std::string valueName, bool valueRequired,
                        std::string description, bool commonOption, std::string shortName)
      : CommandSpecPart(std::move(name), required, std::move(valueName), valueRequired,
                        std::move(description), commonOption, std::move(shortName)) {
    partType.kind = targetKind;
  }
  ~TargetCommandSpecPart() override = default;
};

}  // namespace plugin::cli
