#pragma once

#include <memory>

#include "plugins/plugin.cliframework/CommandSpecPartHelper.h"

namespace plugin::cli {

// Checks the value of "-output" against the values that the command's own
// "-output" part lists in its value name, as in "text|json".
class OutputOptionHelper : private CommandSpecPartHelper {
 public:
  using CommandSpecPartHelper::CommandSpecPartHelper;
  ~OutputOptionHelper() override = default;

  // Null if "-output" is absent or its value is listed (in any case); a
  // SyntaxStatusResult naming the listed values if not.
  std::shared_ptr<ResultBase> check(const ParsedCommand& command) override;
};

}  // namespace plugin::cli
