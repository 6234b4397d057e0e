#include <gtest/gtest.h>

#include "plugins/plugin.cliframework/FeatureBase.h"

using namespace plugin::cli;

namespace {

ParsedCommand parsed(std::initializer_list<std::pair<std::string, std::string>> options) {
  ParsedCommand command;
  for (const auto& [name, value] : options) {
    command.options.elements.push_back(
        std::make_shared<ParsedArgument>(ParsedArgument{3, name, value}));
  }
  return command;
}

// The message of a result, or "pass" for none.
std::string outcome(FeatureBase& plugin, const ParsedCommand& command) {
  const auto result = plugin.checkSyntax(0, command);
  return result ? result->value + " / " + std::to_string(static_cast<StatusResult&>(*result).type)
                : "pass";
}

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

}  // namespace

TEST(FeatureBaseCheckSyntax, RefusesAllWithDisplayBeforeLookingAtOutput) {
  Plugin plugin("text|json");
  const std::string allAndDisplay = "Options 'all' and 'display' cannot be used together. / 201";
  EXPECT_EQ(outcome(plugin, parsed({{"-ALL", ""}, {"-Display", "x"}, {"-output", "xml"}})),
            allAndDisplay);
  EXPECT_EQ(outcome(plugin, parsed({{"-a", ""}, {"-display", "x"}})), "pass");
  EXPECT_EQ(outcome(plugin, parsed({{"-all", ""}, {"-output", "xml"}})),
            "Option -output expects 'text', or 'json' / 201");
}

TEST(OutputOptionHelper, AcceptsOnlyTheListedValues) {
  const struct {
    std::string listed, given, expected;
  } cases[] = {
      {"text|json", "JSON", "pass"},
      {"text|json", "xml", "Option -output expects 'text', or 'json' / 201"},
      {"text|json", "", "Option -output expects 'text', or 'json' / 201"},
      {"a, b; c", "d", "Option -output expects 'a', 'b', or 'c' / 201"},
      {"a", "d", "Option -output expects 'a' / 201"},
      {" ,", "d", "Option -output expects  / 201"},
      {"", "text", "Option -output expects  / 201"},  // no "-output" part declared
  };
  for (const auto& c : cases) {
    Plugin plugin(c.listed);
    EXPECT_EQ(outcome(plugin, parsed({{"-Output", c.given}})), c.expected) << c.listed;
  }
  Plugin plugin("");
  EXPECT_EQ(outcome(plugin, parsed({})), "pass");
}
