#include <gtest/gtest.h>

#include "FakeFeature.h"
#include "ParsedCommands.h"
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
};

}  // namespace

TEST(SSDFeatureBaseCheckSyntax, WantsSsdThenADecimalOrHexNamespace) {
  Plugin plugin(new FakeFeature);
  const auto checked = [&plugin](const std::string& namespaceId, const Arguments& more) {
    Arguments options = {{"-namespace", namespaceId}};
    options.insert(options.end(), more.begin(), more.end());
    return outcome(plugin.checkSyntax(0, parsed(options, {{"-ssd", "1"}})));
  };
  // A "-ssd" target does not count.
  EXPECT_EQ(checked("zz", {}), "Option '-namespace' must be used with '-ssd'. / 0");
  EXPECT_EQ(checked("zz", {{"-ssd", "1"}}),
            "Option '-namespace' must be hex or integer value. / 0");
  for (const char* good : {"0x10", "16", "ff", "0xZ1", "0x", ""}) {
    EXPECT_EQ(checked(good, {{"-ssd", "1"}}), "pass") << good;
  }
}

TEST(SSDFeatureBaseExecute, MovesArgumentsIntoAttributesThenRuns) {
  auto* fake = new FakeFeature;
  fake->optional.add(Attribute("Size", "Size", "uint32"));
  Plugin plugin(fake);
  const auto result = plugin.execute(
      0, parsed({{"-source", "a"}, {"-source", "b"}}, {{"-ssd", "1"}}, {{"size", "0x10"}}));
  EXPECT_EQ(result->toCsv(), "Result\nDescription,Completed successfully.\nType,0\n");
  EXPECT_EQ(fake->runs, 1);
  EXPECT_EQ(orlo::core::getString(fake->attributes, "-source"), "b");
  EXPECT_EQ(orlo::core::getString(fake->attributes, "-ssd"), "1");
  const auto size = fake->attributes.find("Size");
  ASSERT_NE(size, fake->attributes.end());
  EXPECT_EQ(size->first + "=" + size->second.asString(), "Size=16");

  // An undeclared property stops the command before the feature runs or changes.
  const auto refused = plugin.execute(0, parsed({{"-source", "c"}}, {}, {{"Colour", "red"}}));
  EXPECT_EQ(outcome(refused), "Invalid property specified: Colour / 201");
  EXPECT_EQ(fake->runs, 1);
  EXPECT_EQ(orlo::core::getString(fake->attributes, "-source"), "b");
}

TEST(SSDFeatureBaseReportStatus, PrintsTheDocumentOnlyOnSuccessWithChildren) {
  auto* fake = new FakeFeature;
  Plugin plugin(fake);
  const struct {
    Status status;
    bool withChild;
    std::string printed, result;
  } cases[] = {
      {Status(0, "Done."), true, "{\n  \"Size\": 4\n}\n\n", "Done. / 0"},
      {Status(0, "Done."), false, "", "Done. / 0"},
      {Status(10, 33, "Lost."), true, "", "Lost. / 2"},
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
    EXPECT_EQ(outcome(result), c.result);
  }
}

TEST(SSDFeatureBase, DeclaresNamedFeatureAttributesAsProperties) {
  auto* fake = new FakeFeature;
  fake->required.add(Attribute(Attribute("Mode", "Mode label", "string"), "fast"));
  fake->required.add(Attribute("", "Nameless", "string"));
  fake->optional.add(Attribute("Size", "Size label", "uint32"));
  Plugin plugin(fake);
  CommandSpec spec(0, "Cmd", "", verbs::show);
  plugin.addFeatureProperties(spec);
  ASSERT_EQ(spec.properties.elements.size(), 2u);
  const auto& mode = *spec.properties.elements[0];
  EXPECT_EQ(mode.name + "/" + mode.valueName + "/" + mode.description, "Mode/fast/Mode label");
  EXPECT_TRUE(mode.required);
  EXPECT_FALSE(spec.properties.elements[1]->required);
}

TEST(IFeature, ChecksRequiredAttributesBeforeTheDevice) {
  FakeFeature fake;
  const Status noDevice = fake.check();
  EXPECT_EQ(noDevice.message(), "No device selected.");
  EXPECT_EQ(fake.canRun(), noDevice);

  fake.required.add(Attribute("Mode", "", "string"));
  fake.optional.add(Attribute("Mode", "other", "uint8"));
  fake.optional.add(Attribute("Size", "", "uint32"));
  EXPECT_EQ(fake.check(), Status(36, ""));
  fake.attributes.add(Attribute("MODE", "", ""));
  EXPECT_EQ(fake.check(), noDevice);
  // A required attribute wins over an optional one of the same name.
  EXPECT_EQ(fake.allAttributes().size(), 2u);
  EXPECT_EQ(fake.allAttributes().find("Mode")->second.type, "string");
}
