#include <gtest/gtest.h>

#include "ParsedCommands.h"

using namespace plugin::cli;

namespace {

struct Plugin : FeatureBase {
  explicit Plugin(const std::string& outputValues) : FeatureBase("P") {
    if (!outputValues.empty()) {
      spec->addOption(OptionCommandSpecPart("-output", false, outputValues, true, "", true, ""));
    }
  }
  CommandSpecs getCommandSpecs() const override { return {spec}; }
  std::shared_ptr<ResultBase> execute(uint32_t, const ParsedCommand&) override { return nullptr; }

  std::shared_ptr<CommandSpec> spec = std::make_shared<CommandSpec>(0, "Cmd", "", verbs::show);
};

const std::string kTextOrJson = "Option -output expects 'text', or 'json' / 201";

}  // namespace

TEST(FeatureBaseCheckSyntax, RefusesAllWithDisplayBeforeLookingAtOutput) {
  Plugin plugin("text|json");
  const auto checked = [&plugin](const Arguments& options) {
    return outcome(plugin.checkSyntax(0, parsed(options)));
  };
  EXPECT_EQ(checked({{"-ALL", ""}, {"-Display", "x"}, {"-output", "xml"}}),
            "Options 'all' and 'display' cannot be used together. / 201");
  EXPECT_EQ(checked({{"-a", ""}, {"-display", "x"}}), "pass");
  EXPECT_EQ(checked({{"-all", ""}, {"-output", "xml"}}), kTextOrJson);
}

TEST(OutputOptionHelper, AcceptsOnlyTheListedValues) {
  const struct {
    std::string listed, given, expected;
  } cases[] = {
      {"text|json", "JSON", "pass"},
      {"text|json", "xml", kTextOrJson},
      {"text|json", "", kTextOrJson},
      {"a, b; c", "d", "Option -output expects 'a', 'b', or 'c' / 201"},
      {"a", "d", "Option -output expects 'a' / 201"},
      {"", "text", "Option -output expects  / 201"},  // no "-output" part declared
  };
  for (const auto& c : cases) {
    Plugin plugin(c.listed);
    EXPECT_EQ(outcome(plugin.checkSyntax(0, parsed({{"-Output", c.given}}))), c.expected)
        << c.listed;
  }
}
