#include <gtest/gtest.h>

#include "plugins/plugin.cliframework/ResultMakers.h"
#include "plugins/plugin.cliframework/SimpleNumericResult.h"
#include "plugins/plugin.cliframework/SimpleResult.h"

using namespace plugin::cli;

TEST(StatusResult, RendersASuccessInEachFormat) {
  const auto result = makeStatusResult("Completed successfully.");
  EXPECT_EQ(result->toText(0), "Result: Completed successfully.\n");
  EXPECT_EQ(result->toCsv(), "Result\nDescription,Completed successfully.\nType,0\n");
  EXPECT_EQ(result->toJson(0),
            "\"Result\": {\n  \"Description\": \"Completed successfully.\",\n  \"Type\": 0\n}");
  EXPECT_EQ(result->toXml(0),
            "<?xml version=\"1.0\" standalone=\"yes\" ?>\n<Result>\n"
            "  <Description>Completed successfully.</Description>\n  <Type>0</Type>\n</Result>\n");
  EXPECT_EQ(result->toText(1), "  Result: Completed successfully.\n");
}

TEST(StatusResult, RendersASyntaxFailureWithType201) {
  const auto result = makeSyntaxStatusResult("Bad.");
  EXPECT_EQ(result->toText(0), "Result: Bad.\n");
  EXPECT_EQ(result->toCsv(), "Result\nDescription,Bad.\nType,201\n");
  EXPECT_EQ(result->toJson(1),
            "  \"Result\": {\n    \"Description\": \"Bad.\",\n    \"Type\": 201\n  }");
  EXPECT_EQ(result->toXml(1),
            "  <Result>\n    <Description>Bad.</Description>\n    <Type>201</Type>\n  </Result>\n");
  EXPECT_EQ(makeStatusResult("Gone.", 2)->toCsv(), "Result\nDescription,Gone.\nType,2\n");
}

TEST(SimpleResult, CleansTheTagAndTreatsLineFeedsPerFormat) {
  const SimpleResult result("Some Name: a/b", "x<&\ny, z");
  EXPECT_EQ(result.toXml(2), "    <Some_Name-_a-b>x<&\ny, z</Some_Name-_a-b>\n");
  EXPECT_EQ(result.toCsv(), "Some Name: a/b,x<& y, z\n");
  EXPECT_EQ(result.toText(0), "Some Name: a/b: x<&\ny, z\n");
  EXPECT_EQ(result.toJson(0), "\"Some Name: a/b\": \"x<&\\\ny, z\"");
}

TEST(SimpleNumericResult, WritesAnUnquotedNumberInJsonOnly) {
  const SimpleNumericResult hex("Size", "0x10");
  EXPECT_EQ(hex.toJson(1), "  \"Size\": 16");
  EXPECT_EQ(hex.toText(0), "Size: 0x10\n");
}
