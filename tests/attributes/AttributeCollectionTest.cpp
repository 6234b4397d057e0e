#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "orlo/core/AttributeCollection.h"

namespace orlo::core {
namespace {

const Attribute kCount("Count", "Count", "uint32");

TEST(AttributeCollection, InsertsByExactKeyAndFindsIgnoringCaseInIterationOrder) {
  AttributeCollection collection;
  collection.add(Attribute("abc", "lower", "string"));
  collection.add(Attribute("ABC", "upper", "string"));
  writeUInt8(collection, Attribute("ABC", "again", "uint8"), 7);
  ASSERT_EQ(collection.size(), 2u);
  EXPECT_EQ(collection.find("Abc"), collection.begin());
  EXPECT_EQ(collection.find("Ab"), collection.end());
  const Attribute stored = readOrDefault(collection, Attribute("aBc", "", ""));
  EXPECT_EQ(stored.displayName + "/" + stored.type + "/" + stored.asString(), "again/uint8/7");

  const Attribute missing("Missing", "Missing label", "uint8");
  EXPECT_EQ(readOrDefault(collection, missing).displayName, "Missing label");
  EXPECT_FALSE(hasAttribute(collection, missing));
  EXPECT_TRUE(hasAttribute(collection, Attribute("abC", "", "")));
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
      {{1, 2, 3, 4, 5, 6, 7, 8, 9}, 1, 0x0201, 0x04030201, 0x0807060504030201},
      {{}, 0, 0, 0, 0},
  };
  for (const Row& row : rows) {
    AttributeCollection collection;
    Attribute attribute("count", "", "uint32");
    attribute.value = Payload(row.bytes.data(), static_cast<uint32_t>(row.bytes.size()));
    collection.add(attribute);
    EXPECT_EQ(readUInt8(collection, kCount), row.u8);
    EXPECT_EQ(readUInt16(collection, kCount), row.u16);
    EXPECT_EQ(readUInt32(collection, kCount), row.u32);
    EXPECT_EQ(readUInt64(collection, kCount), row.u64);
  }
  EXPECT_EQ(readUInt32(AttributeCollection(), kCount), 0u);
}

TEST(AttributeCollection, WritersStoreUnderTheDescriptor) {
  AttributeCollection collection;
  writeUInt8(collection, kCount, 2);
  EXPECT_FALSE(readBool(collection, kCount));  // only 1 is true
  EXPECT_EQ(readOrDefault(collection, Attribute("COUNT", "", "")).type, "uint32");
  writeUInt32(collection, kCount, 0x01020304);
  EXPECT_EQ(readUInt16(collection, kCount), 0x0304);
  writeString(collection, Attribute("Name", "Name", "string"), "drive");
  EXPECT_EQ(getString(collection, "NAME"), "drive");
}

}  // namespace
}  // namespace orlo::core
