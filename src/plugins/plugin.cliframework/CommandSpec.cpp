#include "plugins/plugin.cliframework/CommandSpec.h"

namespace plugin::cli {

CommandSpec::CommandSpec(const uint32_t& id, const char* name, const char* description,
                         const std::string& verb)
    : id(id), name(name), description(description), verb(verb) {}

void CommandSpec::addOption(const CommandSpecPart& part) {
  options.add(std::make_shared<CommandSpecPart>(part));
}

void CommandSpec::addProperty(const CommandSpecPart& part) {
  properties.add(std::make_shared<CommandSpecPart>(part));
}

std::shared_ptr<CommandSpecPart> CommandSpec::findOption(const std::string& name) const {
  return options.find(name);
}

std::shared_ptr<CommandSpec> findCommandSpec(const CommandSpecs& specs, uint32_t id) {
  for (const auto& spec : specs) {
    if (spec->id == id) return spec;
  }
  return nullptr;
}

}  // namespace plugin::cli
