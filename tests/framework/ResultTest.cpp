#include <gtest/gtest.h>

#include "plugins/plugin.cliframework/ResultMakers.h"
#include "plugins/plugin.cliframework/SimpleNumericResult.h"
#include "plugins/plugin.cliframework/SimpleResult.h"
#include "support/ExpectedText.h"

using namespace plugin::cli;

TEST(StatusResult, RendersInEachFormatAsTheDataFilesShow) {
  const struct {
    std::shared_ptr<ResultBase> result;
    uint32_t level;
    std::string file;
  } cases[] = {{makeStatusResult("Completed successfully."), 0, "success"},
               {makeSyntaxStatusResult("Bad."), 1, "syntax_failure_level1"}};
  for (const auto& c : cases) {
    const auto expected = [&c](const std::string& format) {
      return orlo::testing::testData("framework/" + c.file + format);
    };
    EXPECT_EQ(c.result->toText(c.level), expected(".txt"));
    EXPECT_EQ(c.result->toCsv(), expected(".csv"));
    EXPECT_EQ(c.result->toJson(c.level), expected(".json"));
    EXPECT_EQ(c.result->toXml(c.level), expected(".xml"));
  }
  EXPECT_EQ(makeStatusResult("Gone.", 2)->toCsv(), "Result\nDescription,Gone.\nType,2\n");
}

TEST(SimpleResult, CleansTheTagAndTreatsLineFeedsPerFormat) {
  const SimpleResult result("Some Name: a/b", "x<&\ny, z");
  EXPECT_EQ(result.toXml(2), "    <Some_Name-_a-b>x<&\ny, z</Some_Name-_a-b>\n");
  EXPECT_EQ(result.toCsv(), "Some Name: a/b,x<& y, z\n");
  EXPECT_EQ(result.toText(0), "Some Name: a/b: x<&\ny, z\n");
  EXPECT_EQ(result.toJson(0), "\"Some Name: a/b\": \"x<&\\\ny, z\"");
  const SimpleNumericResult hex("Size", "0x10");
  EXPECT_EQ(hex.toJson(1), "  \"Size\": 16");
  EXPECT_EQ(hex.toText(0), "Size: 0x10\n");
}
