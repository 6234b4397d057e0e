#include <gtest/gtest.h>

#include <string>

#include "plugins/plugin.cliframework/JsonStringLiteral.h"

namespace {

using plugin::cli::jsonStringLiteral;

TEST(JsonStringLiteral, EscapesWhatJsonForbidsAndKeepsValidUtf8) {
  const struct {
    std::string text;
    std::string literal;
  } cases[] = {
      {"", "\"\""},
      {"SN\x01\x1f\x7f", "\"SN\\u0001\\u001f\\u007f\""},
      {"a\"b\\c", "\"a\\\"b\\\\c\""},
      {"\b\f\n\r\t", "\"\\b\\f\\n\\r\\t\""},
      {"caf\xc3\xa9 \xe2\x82\xac \xf0\x9f\x92\xbe",
       "\"caf\xc3\xa9 \xe2\x82\xac \xf0\x9f\x92\xbe\""},
      // Bytes that are not UTF-8: a stray byte, a cut sequence, an overlong form, a
      // surrogate, a code point past U+10FFFF.
      {"\xff", "\"\\u00ff\""},
      {"\xe2\x82", "\"\\u00e2\\u0082\""},
      {"\xc0\x80", "\"\\u00c0\\u0080\""},
      {"\xed\xa0\x80", "\"\\u00ed\\u00a0\\u0080\""},
      {"\xf4\x90\x80\x80", "\"\\u00f4\\u0090\\u0080\\u0080\""},
  };
  for (const auto& c : cases) EXPECT_EQ(jsonStringLiteral(c.text), c.literal) << c.literal;
}

}  // namespace
