#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "orlo/core/AttributeCollection.h"

namespace orlo::core {
namespace {

const Attribute kCount("Count", "Count", "uint32");

Attribute holding(const std::string& name, std::vector<uint8_t> bytes) {
  Attribute attribute(name, name + " label", "uint32");
  attribute.value = Payload(bytes.data(), static_cast<uint32_t>(bytes.size()));
  return attribute;
}

TEST(AttributeCollection, InsertsByExactKeyAndFindsIgnoringCase) {
  AttributeCollection collection;
  collection.add(Attribute("ABC", "upper", "string"));
  collection.add(Attribute("abc", "lower", "string"));
  ASSERT_EQ(collection.size(), 2u);
  EXPECT_EQ(collection.find("Abc"), collection.begin());
  EXPECT_EQ(collection.find("Ab"), collection.end());

  Attribute replacement("ABC", "again", "uint8");
  replacement.description = "new";
  replacement.setUInt8(7);
  collection.add(replacement);
  ASSERT_EQ(collection.size(), 2u);
  Attribute stored;
  for (const auto& [key, attribute] : collection) {
    if (key == "ABC") stored = attribute;
  }
  EXPECT_EQ(stored.displayName + "/" + stored.description + "/" + stored.type, "again/new/uint8");
  EXPECT_EQ(stored.asString(), "7");
}

// The width is the reader's: narrower readers keep the low bytes, wider ones
// zero-extend, and missing or empty values read as 0.
TEST(AttributeCollection, ReadersTakeTheirOwnWidth) {
  struct Row {
    std::vector<uint8_t> bytes;
    uint8_t u8;
    uint16_t u16;
    uint32_t u32;
    uint64_t u64;
  };
  const Row rows[] = {
      {{0x34, 0x12}, 0x34, 0x1234, 0x1234, 0x1234},
      {{0x2C, 0x01, 0x00, 0x00}, 44, 300, 300, 300},
      {{1, 2, 3, 4, 5, 6, 7, 8, 9}, 1, 0x0201, 0x04030201, 0x0807060504030201},
      {{}, 0, 0, 0, 0},
  };
  for (const Row& row : rows) {
    AttributeCollection collection;
    collection.add(holding("count", row.bytes));
    EXPECT_EQ(readUInt8(collection, kCount), row.u8);
    EXPECT_EQ(readUInt16(collection, kCount), row.u16);
    EXPECT_EQ(readUInt32(collection, kCount), row.u32);
    EXPECT_EQ(readUInt64(collection, kCount), row.u64);
  }
  const AttributeCollection none;
  EXPECT_EQ(readUInt32(none, kCount), 0u);
  EXPECT_FALSE(readBool(none, kCount));
  EXPECT_EQ(readString(none, kCount), "");
}

TEST(AttributeCollection, WritersUseTheDescriptorAndReadersFallBack) {
  AttributeCollection collection;
  writeUInt8(collection, kCount, 2);
  EXPECT_FALSE(readBool(collection, kCount));
  EXPECT_EQ(readUInt32(collection, kCount), 2u);
  const Attribute stored = readOrDefault(collection, Attribute("COUNT", "", ""));
  EXPECT_EQ(stored.displayName, "Count");
  EXPECT_EQ(stored.type, "uint32");

  writeString(collection, Attribute("Name", "Name", "string"), "drive");
  EXPECT_EQ(getString(collection, "NAME"), "drive");
  writeUInt32(collection, kCount, 0x01020304);
  EXPECT_EQ(readUInt16(collection, kCount), 0x0304);

  collection.add(Attribute("Flag", "Flag", "boolean"));
  EXPECT_TRUE(hasAttribute(collection, Attribute("flag", "", "")));
  EXPECT_FALSE(readBool(collection, Attribute("flag", "", "")));

  const Attribute missing("Missing", "Missing label", "uint8");
  const Attribute fallback = readOrDefault(collection, missing);
  EXPECT_EQ(fallback.displayName, "Missing label");
  EXPECT_EQ(fallback.value.size(), 0u);
  EXPECT_FALSE(hasAttribute(collection, missing));
}

}  // namespace
}  // namespace orlo::core
