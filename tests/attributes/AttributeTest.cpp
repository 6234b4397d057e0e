#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "orlo/core/Attribute.h"
#include "orlo/core/xml/XmlProperty.h"
#include "support/ExpectedText.h"

namespace orlo::core {
namespace {

Attribute holding(const std::string& type, std::vector<uint8_t> bytes) {
  Attribute attribute("Key", "Label", type);
  attribute.value = Payload(bytes.data(), static_cast<uint32_t>(bytes.size()));
  return attribute;
}

// Every row starts from an attribute that already holds "prior", so a failed
// conversion that forgets to empty the value shows up as a size of 6.
TEST(AttributeSetValue, ChecksComeBeforeConversionAndFailuresEmptyTheValue) {
  struct Row {
    std::string type, text;
    int32_t code;
    std::string shown;
    uint32_t size;
  };
  // clang-format off
  const Row rows[] = {
      {"uint32", "", 0, "0", 4},          {"boolean", "", 40, "False", 0},
      {"uint16", "0x", 0, "0", 2},        {"uint16", "0x10", 0, "16", 2},
      {"uint16", "65536", 40, "0", 0},    {"uint32", "010", 0, "10", 4},
      {"uint128", "010", 0, "8", 16},     {"uint128", "xyz", 40, "0", 0},
      {"uint32", "xyz", 40, "0", 0},      {"sint16", "70000", 0, "4464", 2},
      {"sint16", "-1", 40, "-1", 0},      {"sint32", "4294967295", 0, "-1", 4},
      {"uint8", "255", 0, "255", 1},      {"uint8", "256", 40, "0", 0},
      {"ulong", "4294967296", 40, "0", 0}, {"uint64", "99999999999999999999", 0, "9223372036854775807", 8},
      {"boolean", "TRUE", 0, "True", 1},  {"boolean", "FaLsE", 0, "False", 1},
      {"boolean", "0", 0, "False", 1},    {"boolean", "2", 40, "False", 0},
      {"string", "abc", 0, "abc", 4},     {"double", "1.5", 0, "", 8},
      {"sint8", "5", 40, "-1", 0},        {"", "5", 40, "", 0},
      {"hexValue", "5", 40, "", 0},       {"bytepointer", "AA", 40, "", 0},
      {"vectorOfStrings", "a~b", 40, "", 0},
  };
  // clang-format on
  for (const Row& row : rows) {
    SCOPED_TRACE(row.type + " <- \"" + row.text + "\"");
    Attribute attribute("Key", "Label", row.type);
    attribute.setStringValue("prior");
    EXPECT_EQ(attribute.setValue(row.text).code(), row.code);
    EXPECT_EQ(attribute.value.size(), row.size);
    EXPECT_EQ(attribute.asString(), row.shown);
  }
}

TEST(AttributeSetValue, ParserExceptionsLeaveThePreviousValue) {
  Attribute wide("Key", "Label", "uint128");
  wide.setStringValue("prior");
  EXPECT_THROW(wide.setValue("ff"), std::runtime_error);
  Attribute real("Key", "Label", "double");
  real.setStringValue("prior");
  EXPECT_THROW(real.setValue("abc"), std::invalid_argument);
  EXPECT_THROW(real.setValue("1e999"), std::out_of_range);
  for (const Attribute* attribute : {&wide, &real}) {
    EXPECT_EQ(attribute->storedText(), "prior");
  }
}

TEST(AttributeAsString, ReadsTheStoredBytesByTag) {
  struct Row {
    std::string type;
    std::vector<uint8_t> bytes;
    std::string shown;
  };
  // clang-format off
  const Row rows[] = {
      {"uint8", {0x2C, 0x01}, "300"},       {"uint32", {}, "0"},
      {"uint128", {}, "0"},                 {"uint128", {0x01}, "340282366920938463463374607431768211201"},
      {"sint8", {0x80}, "-128"},            {"sint16", {0xFF}, "255"},
      {"sint16", {0xFF, 0xFF, 0x7F}, "-1"}, {"sint32", {}, "-1"},
      {"boolean", {2}, "False"},            {"boolean", {1, 0}, "True"},
      {"hexValue", {0, 0, 0x1F, 0x2A}, "0x1F2A"}, {"hexValue", {0, 0, 0, 0}, "0x0"},
      {"bytepointer", {0xDE, 0xAD}, "DEAD"}, {"list_uint64", {0x01, 0x00}, "0100"},
      {"string", {'a', 0, 'b', 0}, std::string("a\0b", 3)},
      {"vectorOfStrings", {'a', '~', '~', 'b', 0}, "a~~b"}, {"vectorOfPayloads", {1}, ""},
  };
  // clang-format on
  for (const Row& row : rows) {
    SCOPED_TRACE(row.type + " -> " + row.shown);
    EXPECT_EQ(holding(row.type, row.bytes).asString(), row.shown);
  }
  EXPECT_EQ(Attribute("Key", "Label", "hexValue").asString(), "");
  EXPECT_EQ(holding("vectorOfStrings", {'a', '~', '~', 'b', 0}).asStringList(),
            (std::vector<std::string>{"a", "", "b"}));
  EXPECT_TRUE(holding("vectorOfStrings", {0}).asStringList().empty());
}

// Without a description, the form is checked in the commands' XML (tests/device).
TEST(AttributeXml, WritesADescriptionWhenSet) {
  Attribute attribute("SerialNumber", "Serial Number", "string");
  attribute.setStringValue("a<b");
  attribute.description = "Drive serial";
  EXPECT_EQ(orlo::testing::xmlText(*attribute.toXml()),
            R"(<Property category="attribute" description="Drive serial" )"
            R"(displayName="Serial Number" name="SerialNumber" size="4" type="string" )"
            R"(value="a&amp;lt;b"/>)");
}

}  // namespace
}  // namespace orlo::core
