#include <gtest/gtest.h>

#include <typeinfo>

#include "plugins/plugin.cliframework/CommandSpec.h"
#include "plugins/plugin.cliframework/SharedParts.h"

using namespace plugin::cli;

TEST(CommandSpecPartList, LaterPartOfTheSameNameReplacesInPlace) {
  CommandSpec spec(0, "Cmd", "d", "show");
  spec.addOption(helpOption);
  spec.addOption(outputOption);
  spec.addOption(CommandSpecPart("-HELP", true, "", false, "other", false, ""));
  ASSERT_EQ(spec.options.elements.size(), 2u);
  EXPECT_EQ(spec.options.elements[0]->description, "other");
  EXPECT_EQ(spec.findOption("-Output")->valueName, "text|json");
  EXPECT_EQ(spec.options.find("-x"), nullptr);
}

TEST(CommandSpec, KeepsOnlyTheKindOfADerivedPart) {
  CommandSpec spec(0, "Cmd", "d", "show");
  spec.addOption(OptionCommandSpecPart("-x", false, "", false, "", false, ""));
  spec.addProperty(PropertyCommandSpecPart("Size", true, "uint32", "Size of it"));
  const auto& option = *spec.options.elements[0];
  const auto& property = *spec.properties.elements[0];
  EXPECT_EQ(typeid(option), typeid(CommandSpecPart));
  EXPECT_EQ(option.partType.kind, 3u);
  EXPECT_EQ(property.partType.kind, 5u);
  EXPECT_TRUE(property.commonOption && !property.valueRequired);
}

TEST(CommandSpec, FindsTheFirstSpecificationWithAnId) {
  const auto first = std::make_shared<CommandSpec>(7, "A", "", "show");
  const CommandSpecs specs{std::make_shared<CommandSpec>(1, "B", "", "show"), first,
                           std::make_shared<CommandSpec>(7, "C", "", "show")};
  EXPECT_EQ(findCommandSpec(specs, 7), first);
  EXPECT_EQ(findCommandSpec(specs, 2), nullptr);
}
