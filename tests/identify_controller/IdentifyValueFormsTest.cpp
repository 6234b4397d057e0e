#include <gtest/gtest.h>

#include <vector>

#include "orlo/features/identify/IdentifyValueForms.h"

namespace valueForms = orlo::features::identify::nvme::valueForms;
using orlo::core::Payload;

namespace {

Payload bytes(std::vector<uint8_t> values) {
  return Payload(values.data(), values.size());
}

}  // namespace

TEST(IdentifyValueForms, ReadsNumbersLittleEndianAndNeverPastTheEnd) {
  const Payload payload = bytes({0x34, 0x12, 0xF0, 0x0F});
  EXPECT_EQ(valueForms::littleEndian(payload, 0, 2), 0x1234u);
  EXPECT_EQ(valueForms::littleEndian(payload, 1, 4), 0x0FF012u);
  EXPECT_EQ(valueForms::littleEndian(payload, 4, 2), 0u);
  // Bits count from the first byte's bit 0 and run on into the next bytes.
  EXPECT_EQ(valueForms::bits(payload, 0, {11, 4}), 0x23u);
  EXPECT_EQ(valueForms::bits(payload, 2, {7, 4}), 0xFu);
  EXPECT_EQ(valueForms::bits(payload, 1, {31, 0}), 0x0FF012u);
  // 64 bits that start inside a byte take the top of a ninth.
  const Payload wide = bytes({0x10, 0, 0, 0, 0, 0, 0, 0, 0xAB});
  EXPECT_EQ(valueForms::bits(wide, 0, {67, 4}), 0xB000000000000001u);
  EXPECT_EQ(valueForms::bits(wide, 0, {99, 4}), 0xB000000000000001u);
}

TEST(IdentifyValueForms, PrintsNumbers) {
  EXPECT_EQ(valueForms::decimal(18446744073709551615u), "18446744073709551615");
  EXPECT_EQ(valueForms::hex(0xAB, 4), "0x00AB");
  EXPECT_EQ(valueForms::hex(0), "0x0");
  EXPECT_EQ(valueForms::bareHex(1, 2), "01");
}

TEST(IdentifyValueForms, PrintsByteRanges) {
  std::vector<uint8_t> values(16);
  for (uint8_t i = 0; i < 16; ++i) values[i] = i;
  const Payload payload = bytes(values);
  EXPECT_EQ(valueForms::longHex(payload, 1, 3, false), "0x010203");
  EXPECT_EQ(valueForms::longHex(payload, 1, 3, true), "0x030201");
  EXPECT_EQ(valueForms::longHex(payload, 14, 6, false), "0x0E0F");
  EXPECT_EQ(valueForms::longHex(Payload(10), 0, 10, false), "0x0");
  EXPECT_EQ(valueForms::longHex(payload, 16, 4, false), "0x");
  EXPECT_EQ(valueForms::hex128(payload, 0), "0x0F0E0D0C0B0A09080706050403020100");
  EXPECT_EQ(valueForms::hex128(Payload(16), 0), "0x00000000000000000000000000000000");
}

TEST(IdentifyValueForms, CleansText) {
  const Payload payload = bytes({'x', ' ', 'A', 0, 'B', '\t', 'C', ' ', ' '});
  EXPECT_EQ(valueForms::text(payload, 1, 8), "ABC");
  EXPECT_EQ(valueForms::text(payload, 2, 100), "ABC");
  EXPECT_EQ(valueForms::text(payload, 9, 4), "");
}
