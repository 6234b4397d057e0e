#include <gtest/gtest.h>

#include "update_ir/LoadedPlugin.h"

namespace {

using orlo::testing::loadedPlugin;
using plugin::cli::PluginRegistry;

TEST(RegisterFeatures, AddsThePluginEachTimeTheCommandOnceAndSharesThemAcrossRegistries) {
  PluginRegistry registry;
  PluginRegistry other;
  EXPECT_TRUE(loadedPlugin().registerFeatures(registry));
  EXPECT_TRUE(loadedPlugin().registerFeatures(registry));
  EXPECT_TRUE(loadedPlugin().registerFeatures(other));

  ASSERT_EQ(registry.plugins.size(), 2u);
  EXPECT_EQ(registry.plugins[0], registry.plugins[1]);
  ASSERT_EQ(registry.commands.size(), 1u);
  ASSERT_EQ(registry.commandOwners.size(), 1u);
  EXPECT_EQ(registry.commandOwners.at(registry.commands[0].get()), registry.plugins[0]);
  EXPECT_EQ(other.plugins.at(0), registry.plugins[0]);
  EXPECT_EQ(other.commands.at(0), registry.commands[0]);
}

}  // namespace
