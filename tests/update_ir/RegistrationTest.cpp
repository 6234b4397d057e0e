#include <gtest/gtest.h>

#include <filesystem>

#include "support/ScratchDirectory.h"
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

TEST(RegisterFeatures, DeclaresUpdateIncidentReport) {
  PluginRegistry registry;
  loadedPlugin().registerFeatures(registry);
  const auto& spec = *registry.commands.at(0);
  EXPECT_EQ(spec.id, 0u);
  EXPECT_EQ(spec.name, "UpdateIncidentReport");
  EXPECT_EQ(spec.verb, "update");
  EXPECT_EQ(spec.description, "Update existing IR zip file with new source file");
  EXPECT_TRUE(spec.properties.elements.empty());

  struct Expected {
    const char* name;
    bool required;
    const char* valueName;
    bool valueRequired;
    const char* description;
  };
  const Expected options[] = {
      {"-help", false, "", false, "Display help for the command."},
      {"-source", true, "path", true, "Path to the source file."},
      {"-destination", true, "path", true, "Path to the destination file."},
      {"-v", false, "", false, "Display verbose data"},
  };
  ASSERT_EQ(spec.options.elements.size(), std::size(options));
  for (std::size_t i = 0; i < std::size(options); ++i) {
    const auto& part = *spec.options.elements[i];
    SCOPED_TRACE(options[i].name);
    EXPECT_EQ(part.name, options[i].name);
    EXPECT_EQ(part.required, options[i].required);
    EXPECT_EQ(part.valueName, options[i].valueName);
    EXPECT_EQ(part.valueRequired, options[i].valueRequired);
    EXPECT_EQ(part.description, options[i].description);
  }
}

TEST(InitializeLogger, OpensTheNamedLogFileOnlyWhenEnabled) {
  orlo::testing::ScratchDirectory scratch;
  loadedPlugin().initializeLogger(false, scratch / "off.log");
  EXPECT_FALSE(std::filesystem::exists(scratch / "off.log"));
  loadedPlugin().initializeLogger(true, scratch / "on.log");
  EXPECT_TRUE(std::filesystem::exists(scratch / "on.log"));
  loadedPlugin().initializeLogger(false, "");
}

}  // namespace
