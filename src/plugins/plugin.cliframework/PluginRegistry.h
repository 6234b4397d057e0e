#pragma once

// The record that the host owns and hands to each plug-in's register_features.
// Host and plug-ins are built against this one declaration: the order and the
// types of the members are the interface between them.

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "plugins/plugin.cliframework/CommandSpec.h"
#include "plugins/plugin.cliframework/FeatureBase.h"

namespace plugin::cli {

// Orders command specifications by their address read as an unsigned 64-bit number.
struct CommandSpecAddressLess {
  bool operator()(const CommandSpec* left, const CommandSpec* right) const {
    return reinterpret_cast<uint64_t>(left) < reinterpret_cast<uint64_t>(right);
  }
};

struct PluginRegistry {
  // Every plug-in object; a plug-in appends itself on each registration. The objects
  // live in their libraries: the host clears these pointers before it unloads them.
  std::vector<FeatureBase*> plugins;
  // Which plug-in serves which command.
  std::map<CommandSpec*, FeatureBase*, CommandSpecAddressLess> commandOwners;
  // The host's own, never touched by a plug-in: the library file each entry of
  // `plugins` came from, at the same index.
  std::vector<std::string> pluginFiles;
  // All command specifications, each once, shared with the plug-ins that made them.
  CommandSpecs commands;
};

}  // namespace plugin::cli
