#include <gtest/gtest.h>

#include "orlo/core/BitField.h"
#include "orlo/core/LittleEndian.h"

namespace orlo::core {
namespace {

constexpr uint8_t kBytes[16] = {0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x88,
                                0xF0, 0xE0, 0xD0, 0xC0, 0xB0, 0xA0, 0x90, 0x80};

static_assert(le::read16(kBytes) == 0x0201);
static_assert(le::read32(kBytes + 1) == 0x05040302);
static_assert(le::read64(kBytes) == 0x8807060504030201);
static_assert(le::read(kBytes, 0) == 0);
static_assert(le::read128(kBytes).low == 0x8807060504030201);
static_assert(le::read128(kBytes).high == 0x8090A0B0C0D0E0F0);

struct Case {
  uint64_t value;
  BitField field;
  uint64_t expected;
};

TEST(BitFieldTest, ReadsWritesExtractsAndInserts) {
  const Case cases[] = {
      {0x8807060504030201, bits(63, 0), 0x8807060504030201},
      {0x8807060504030201, bit(63), 1},
      {0x8807060504030201, bits(63, 56), 0x88},
      {0x8807060504030201, bit(0), 1},
      {0x8807060504030201, bits(15, 4), 0x020},
      {0xFFFFFFFFFFFFFFFF, bits(62, 1), 0x3FFFFFFFFFFFFFFF},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(extract(c.value, c.field), c.expected)
        << int{c.field.high} << ':' << int{c.field.low};
    EXPECT_EQ(insert(0, c.field, c.expected), c.value & c.field.mask());
    EXPECT_EQ(insert(c.value, c.field, c.expected), c.value);
  }

  uint8_t bytes[16] = {};
  le::write(bytes, 8, le::read64(kBytes));
  le::write(bytes + 8, 8, le::read128(kBytes).high);
  for (int i = 0; i < 16; ++i) EXPECT_EQ(bytes[i], kBytes[i]) << i;
  le::write(bytes, 3, 0xAABBCCDD);
  EXPECT_EQ(le::read32(bytes), 0x04BBCCDDu);
}

}  // namespace
}  // namespace orlo::core
