#pragma once

// What the host sees of a plug-in, and everything a plug-in needs to describe
// its commands and answer them.

#include <cstdint>
#include <memory>
#include <string>

#include "plugins/plugin.cliframework/CommandSpec.h"
#include "plugins/plugin.cliframework/CommandSpecPart.h"
#include "plugins/plugin.cliframework/CommandSpecPartList.h"
#include "plugins/plugin.cliframework/OptionCommandSpecPart.h"
#include "plugins/plugin.cliframework/ParsedCommand.h"
#include "plugins/plugin.cliframework/PropertyCommandSpecPart.h"
#include "plugins/plugin.cliframework/ResultBase.h"
#include "plugins/plugin.cliframework/ResultMakers.h"
#include "plugins/plugin.cliframework/SharedParts.h"
#include "plugins/plugin.cliframework/StatusResult.h"
#include "plugins/plugin.cliframework/SyntaxStatusResult.h"
#include "plugins/plugin.cliframework/TargetCommandSpecPart.h"
#include "plugins/plugin.cliframework/Vocabulary.h"

namespace orlo::core {
class Device;
}

namespace plugin::cli {

// A plug-in: its command specifications, the syntax check of a parsed command,
// and the command's run. Every check and `execute` give null to let the flow go
// on, or the result that ends it and goes back to the host.
class FeatureBase {
 public:
  explicit FeatureBase(std::string name);
  virtual ~FeatureBase() = default;

  virtual CommandSpecs getCommandSpecs() const = 0;
  virtual std::shared_ptr<ResultBase> execute(uint32_t id, const ParsedCommand& command) = 0;
  // "-all" with "-display" first, then the value of "-output" against the
  // command specification with this id.
  virtual std::shared_ptr<ResultBase> checkSyntax(uint32_t id, const ParsedCommand& command);
  // Logs the call and keeps nothing; a plug-in that works on a drive keeps it.
  virtual void registerDevice(const std::shared_ptr<orlo::core::Device>& device);

  std::string name;
};

}  // namespace plugin::cli
