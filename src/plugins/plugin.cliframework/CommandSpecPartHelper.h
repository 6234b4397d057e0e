#pragma once

#include <memory>
#include <utility>

#include "plugins/plugin.cliframework/CommandSpec.h"
#include "plugins/plugin.cliframework/ParsedCommand.h"
#include "plugins/plugin.cliframework/ResultBase.h"

namespace plugin::cli {

// A check of a parsed command against the parts of one command specification.
class CommandSpecPartHelper {
 public:
  explicit CommandSpecPartHelper(std::shared_ptr<CommandSpec> spec) : spec(std::move(spec)) {}
  virtual ~CommandSpecPartHelper() = default;

  // Null if the command passes, the result to give back to the host if not.
  virtual std::shared_ptr<ResultBase> check(const ParsedCommand& command) = 0;

 protected:
  std::shared_ptr<CommandSpec> spec;
};

}  // namespace plugin::cli
