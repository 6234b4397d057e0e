#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "plugins/plugin.cliframework/CommandSpecPartList.h"

namespace plugin::cli {

// The description of one command, from which the host parses a command line
// and writes its help. Held through std::shared_ptr and shared with the host.
class CommandSpec {
 public:
  CommandSpec(const uint32_t& id, const char* name, const char* description,
              const std::string& verb);

  // Each adds a new shared copy of the part: a derived part loses its class
  // here and keeps only its kind.
  void addOption(const CommandSpecPart& part);
  void addProperty(const CommandSpecPart& part);

  std::shared_ptr<CommandSpecPart> findOption(const std::string& name) const;

  uint32_t id;
  std::string name;
  std::string description;
  std::string verb;
  CommandSpecPartList options;
  CommandSpecPartList targets;
  CommandSpecPartList properties;
};

using CommandSpecs = std::vector<std::shared_ptr<CommandSpec>>;

// The first command specification with this id, or null.
std::shared_ptr<CommandSpec> findCommandSpec(const CommandSpecs& specs, uint32_t id);

}  // namespace plugin::cli
