#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "orlo/core/Payload.h"
#include "orlo/core/Strings.h"

using namespace orlo::core::strings;

TEST(Strings, Recognisers) {
  struct Row {
    std::string text;
    bool integer, hex, boolean;
  };
  const Row rows[] = {
      {"", false, true, false},     {"0", true, true, true},       {"1", true, true, true},
      {"0x", false, true, false},   {"0X", false, true, false},    {"0xA", false, true, false},
      {"0xZ1", false, true, false}, {"0x1Z", false, false, false}, {"g", false, false, false},
      {"-5", false, false, false},  {"TrUe", false, false, true},  {"False", false, false, true},
      {"12", true, true, false},    {"1F", false, true, false},    {"2", true, true, false},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(isInteger(row.text), row.integer) << row.text;
    EXPECT_EQ(isHex(row.text), row.hex) << row.text;
    EXPECT_EQ(isBoolean(row.text), row.boolean) << row.text;
  }
}

TEST(Strings, NumberParsers) {
  // clang-format off
  const std::pair<std::string, int64_t> rows[] = {
      {"10", 10}, {"0x10", 16}, {"1F", 31}, {"-5", -5}, {"abc", 0xABC}, {"x1", 0}, {"", 0},
      {"9223372036854775808", INT64_MAX}, {"0x8000000000000000", INT64_MIN}};
  // clang-format on
  for (const auto& [text, value] : rows) EXPECT_EQ(toInteger(text), value) << text;
  EXPECT_EQ(hexToInt("0xff"), 255u);
  EXPECT_EQ(hexToInt("0x1Z"), UINT64_MAX);
}

TEST(Strings, TextOperations) {
  EXPECT_TRUE(contains("Hello World", "WORLD", true));
  EXPECT_FALSE(contains("Hello World", "WORLD", false));
  EXPECT_TRUE(contains("Hello", std::string("l\0z", 3), false));
  EXPECT_TRUE(endsWith("archive.ZIP", ".zip", true));
  EXPECT_FALSE(endsWith("zip", "a.zip", true));

  std::string text = "a&b&&c";
  replaceAll(text, "&", "&amp;");
  EXPECT_EQ(text, "a&amp;b&amp;&amp;c");
  EXPECT_EQ(sanitize("\t a b \n"), "a b");
  EXPECT_EQ(sanitize("x\x1f\x7f\xff~y"), "x~y");
  EXPECT_EQ(split("a~~b~", "~"), (std::vector<std::string>{"a", "", "b", ""}));
  EXPECT_EQ(split("a,b;c", ",;"), (std::vector<std::string>{"a", "b", "c"}));
}

TEST(Strings, Printers) {
  EXPECT_EQ(boolToString(true), "True");
  EXPECT_EQ(toString(uint8_t{200}), "200");
  EXPECT_EQ(toString(int8_t{-100}), "-100");
  EXPECT_EQ(toHex(uint8_t{255}, 4), "00FF");
  EXPECT_EQ(toHex(uint32_t{0xABCDE}, 2), "ABCDE");
  EXPECT_EQ(toHex(int32_t{-1}, 2), "FFFFFFFFFFFFFFFF");

  const uint8_t bytes[] = {0xDE, 0xAD, 0x0B, 0xEF};
  EXPECT_EQ(toHexString(orlo::core::Payload(bytes, 4)), "DEAD0BEF");
  EXPECT_EQ(toHexNumber(bytes, 2, true), "0xADDE");
  const uint8_t zeros[16] = {};
  EXPECT_EQ(toHexNumber(zeros, 4, true), "0x00000000");
  EXPECT_EQ(toHexNumber(zeros, 16, true), "0x0");
  EXPECT_EQ(fromBytes("ab\0cd", 5), "ab");
  EXPECT_EQ(fromBytes("abcd", 3), "abc");
}

TEST(Strings, HexDumpLeavesTheLastLineUnpadded) {
  const std::string text = "A CDEFGHIJKLMNOPQ";
  EXPECT_EQ(hexDump(text.data(), 17, 16),
            "0000: 41 20 43 44 45 46 47 48  49 4A 4B 4C 4D 4E 4F 50  A.CDEFGHIJKLMNOP\n"
            "0010: 51  Q");
}
