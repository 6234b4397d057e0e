#include <gtest/gtest.h>

#include "update_ir/LoadedPlugin.h"

namespace {

using orlo::testing::loadedPlugin;
using plugin::cli::PluginRegistry;

TEST(RegisterFeatures, RegisteringTwiceAddsThePluginAgainButTheCommandOnce) {
  PluginRegistry registry;
  EXPECT_TRUE(loadedPlugin().registerFeatures(registry));
  EXPECT_TRUE(loadedPlugin().registerFeatures(registry));

  ASSERT_EQ(registry.plugins.size(), 2u);
  EXPECT_EQ(registry.plugins[0], registry.plugins[1]);
  EXPECT_EQ(registry.plugins[0]->name, "UpdateIRPlugin");
  ASSERT_EQ(registry.commands.size(), 1u);
  EXPECT_EQ(registry.commands[0]->name, "UpdateIncidentReport");
  ASSERT_EQ(registry.commandOwners.size(), 1u);
  EXPECT_EQ(registry.commandOwners.begin()->first, registry.commands[0].get());
  EXPECT_EQ(registry.commandOwners.begin()->second, registry.plugins[0]);
}

TEST(RegisterFeatures, TwoRegistriesShareTheSingletonAndTheCommandSpecification) {
  PluginRegistry first;
  PluginRegistry second;
  loadedPlugin().registerFeatures(first);
  loadedPlugin().registerFeatures(second);
  EXPECT_EQ(first.plugins.at(0), second.plugins.at(0));
  EXPECT_EQ(first.commands.at(0), second.commands.at(0));
}

}  // namespace
