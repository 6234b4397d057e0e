#include <gtest/gtest.h>

#include "FakeFeature.h"
#include "orlo/core/AttributeCollection.h"
#include "plugins/plugin.cliframework/SSDFeatureBase.h"

using namespace plugin::cli;
using orlo::core::Attribute;
using orlo::core::Status;

namespace {

struct Plugin : SSDFeatureBase {
  explicit Plugin(FakeFeature* fake) : SSDFeatureBase("P", std::unique_ptr<FakeFeature>(fake)) {
    commandSpecs.push_back(std::make_shared<CommandSpec>(0, "Cmd", "", verbs::show));
  }
  using SSDFeatureBase::feature;
};

void give(ParsedArgumentList& list, const std::string& name, const std::string& value) {
  list.elements.push_back(std::make_shared<ParsedArgument>(ParsedArgument{0, name, value}));
}

// The message and type of a check's result, or "pass" for none.
std::string checked(Plugin& plugin, const ParsedCommand& command) {
  const auto result = plugin.checkSyntax(0, command);
  return result ? result->value + " / " + std::to_string(static_cast<StatusResult&>(*result).type)
                : "pass";
}

}  // namespace

TEST(SSDFeatureBaseCheckSyntax, WantsSsdThenADecimalOrHexNamespace) {
  const std::string withoutSsd = "Option '-namespace' must be used with '-ssd'. / 0";
  Plugin plugin(new FakeFeature);
  ParsedCommand command;
  give(command.options, "-namespace", "zz");
  give(command.targets, "-ssd", "1");  // only an option counts
  EXPECT_EQ(checked(plugin, command), withoutSsd);
  give(command.options, "-ssd", "1");
  EXPECT_EQ(checked(plugin, command), "Option '-namespace' must be hex or integer value. / 0");
  for (const char* good : {"0x10", "16", "ff", "0xZ1", "0x", ""}) {
    command.options.find("-namespace")->value = good;
    EXPECT_EQ(checked(plugin, command), "pass") << good;
  }
  command.options.find("-namespace")->value = "zz";
  give(command.options, "-all", "");
  give(command.options, "-display", "");
  EXPECT_EQ(checked(plugin, command), "Options 'all' and 'display' cannot be used together. / 201");
}

TEST(SSDFeatureBaseExecute, MovesArgumentsIntoAttributesThenRuns) {
  auto* fake = new FakeFeature;
  fake->optional.add(Attribute("Size", "Size", "uint32"));
  Plugin plugin(fake);
  ParsedCommand command;
  give(command.options, "-source", "a");
  give(command.options, "-source", "b");
  give(command.targets, "-ssd", "1");
  give(command.properties, "size", "0x10");

  const auto result = plugin.execute(0, command);
  EXPECT_EQ(result->toCsv(), "Result\nDescription,Completed successfully.\nType,0\n");
  EXPECT_EQ(fake->runs, 1);
  EXPECT_EQ(orlo::core::getString(fake->attributes, "-source"), "b");
  EXPECT_EQ(orlo::core::getString(fake->attributes, "-ssd"), "1");
  const auto size = fake->attributes.find("Size");
  ASSERT_NE(size, fake->attributes.end());
  EXPECT_EQ(size->first, "Size");
  EXPECT_EQ(size->second.asString(), "16");

  ParsedCommand undeclared;
  give(undeclared.options, "-source", "c");
  give(undeclared.properties, "Colour", "red");
  const auto refused = plugin.execute(0, undeclared);
  EXPECT_EQ(refused->toText(0), "Result: Invalid property specified: Colour\n");
  EXPECT_EQ(static_cast<StatusResult&>(*refused).type, 201);
  EXPECT_EQ(fake->runs, 1);
  EXPECT_EQ(orlo::core::getString(fake->attributes, "-source"), "b");
}

TEST(SSDFeatureBaseReportStatus, PrintsTheDocumentOnlyOnSuccessWithChildren) {
  auto* fake = new FakeFeature;
  Plugin plugin(fake);
  const struct {
    Status status;
    bool withChild;
    std::string printed, csv;
  } cases[] = {
      {Status(0, "Done."), true, "{\n  \"Size\": 4\n}\n\n", "Result\nDescription,Done.\nType,0\n"},
      {Status(0, "Done."), false, "", "Result\nDescription,Done.\nType,0\n"},
      {Status(10, 33, "Lost."), true, "", "Result\nDescription,Lost.\nType,2\n"},
  };
  for (const auto& c : cases) {
    fake->jsonDocument = orlo::features::Json();
    if (c.withChild) {
      auto& size = fake->jsonDocument.child("Size");
      size.kind = orlo::features::Json::unsignedKind;
      size.unsignedValue = 4;
    }
    testing::internal::CaptureStdout();
    const auto result = plugin.reportStatus(c.status);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), c.printed);
    EXPECT_EQ(result->toCsv(), c.csv);
  }
}

TEST(SSDFeatureBase, DeclaresFeatureAttributesAsProperties) {
  auto* fake = new FakeFeature;
  fake->required.add(Attribute(Attribute("Mode", "Mode label", "string"), "fast"));
  fake->required.add(Attribute("", "Nameless", "string"));
  fake->optional.add(Attribute("Size", "Size label", "uint32"));
  Plugin plugin(fake);
  CommandSpec spec(0, "Cmd", "", verbs::show);
  plugin.addFeatureProperties(spec);
  ASSERT_EQ(spec.properties.elements.size(), 2u);
  const auto mode = spec.properties.find("Mode");
  EXPECT_TRUE(mode->required);
  EXPECT_EQ(mode->valueName, "fast");
  EXPECT_EQ(mode->description, "Mode label");
  EXPECT_FALSE(spec.properties.elements[1]->required);
  EXPECT_EQ(deviceNotFoundResult->toCsv(), "Result\nDescription,Failed to find device.\nType,1\n");
}

TEST(IFeature, ChecksRequiredAttributesBeforeTheDevice) {
  FakeFeature fake;
  const Status noDevice = fake.check();
  EXPECT_EQ(noDevice.message(), "No device selected.");
  EXPECT_EQ(noDevice.category(), 100);
  EXPECT_EQ(fake.canRun().code(), noDevice.code());

  fake.required.add(Attribute("Mode", "", "string"));
  fake.optional.add(Attribute("Mode", "other", "uint8"));
  fake.optional.add(Attribute("Size", "", "uint32"));
  EXPECT_EQ(fake.check(), Status(36, ""));
  fake.attributes.add(Attribute("MODE", "", ""));
  EXPECT_EQ(fake.check(), noDevice);
  const auto all = fake.allAttributes();
  EXPECT_EQ(all.size(), 2u);
  EXPECT_EQ(all.find("Mode")->second.type, "string");
}
