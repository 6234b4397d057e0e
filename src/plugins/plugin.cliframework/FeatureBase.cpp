#include "plugins/plugin.cliframework/FeatureBase.h"

#include <utility>

#include "orlo/core/Logging.h"
#include "plugins/plugin.cliframework/OutputOptionHelper.h"

namespace plugin::cli {

FeatureBase::FeatureBase(std::string name) : name(std::move(name)) {}

std::shared_ptr<ResultBase> FeatureBase::checkSyntax(uint32_t id, const ParsedCommand& command) {
  const CommandSpecs specs = getCommandSpecs();
  // Only the long names count: a short "-a" is the host's to resolve.
  if (command.options.contains(allOption.name) && command.options.contains(displayOption.name)) {
    return makeSyntaxStatusResult("Options 'all' and 'display' cannot be used together.");
  }
  return OutputOptionHelper(findCommandSpec(specs, id)).check(command);
}

void FeatureBase::registerDevice(const std::shared_ptr<orlo::core::Device>&) {
  ORLO_LOG(debug, "");
}

}  // namespace plugin::cli
