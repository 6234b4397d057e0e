#include <gtest/gtest.h>

#include <string>

#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/identify/ATAIdentifyDecoder.h"
#include "support/ExpectedText.h"

namespace {

using orlo::core::AttributeCollection;
using orlo::core::Payload;
using orlo::features::identify::ata::decodeIdentifyDevice;
using orlo::testing::xmlText;
namespace properties = orlo::core::properties;

void setWord(Payload& data, unsigned index, uint16_t word) {
  data[2 * index] = static_cast<uint8_t>(word);
  data[2 * index + 1] = static_cast<uint8_t>(word >> 8);
}

// Every byte differs from its neighbours, so a value read from the wrong place or in
// the wrong order shows; words 7-8 and 60-61 hold the same words, which the expected
// tree shows in the opposite orders.
Payload craftedData() {
  Payload data(512);
  for (unsigned index = 0; index < 512; ++index)
    data[index] = static_cast<uint8_t>(index * 37 + 11);
  setWord(data, 0, 0x8A5A);
  for (unsigned first : {7u, 60u}) {
    setWord(data, first, 0x1234);
    setWord(data, first + 1, 0xABCD);
  }
  return data;
}

AttributeCollection craftedDevice() {
  AttributeCollection device;
  orlo::core::writeString(device, properties::serialNumber(), "SN 0042-A");
  orlo::core::writeString(device, properties::firmware(), "FW1.0");
  orlo::core::writeString(device, properties::modelNumber(), "Corvid A7 SSD");
  return device;
}

TEST(ATAIdentifyDecoder, CraftedDataGivesTheExpectedTree) {
  const std::string expected = orlo::testing::expectedXml("identify_ata/identify_device.xml");
  ASSERT_FALSE(expected.empty());
  EXPECT_EQ(xmlText(*decodeIdentifyDevice(craftedData(), craftedDevice())), expected);
}

TEST(ATAIdentifyDecoder, DataShorterThanOneSectorGivesABareRoot) {
  for (uint32_t size : {0u, 1u, 511u}) {
    EXPECT_EQ(xmlText(*decodeIdentifyDevice(Payload(size), craftedDevice())), "<Object></Object>")
        << size;
  }
}

}  // namespace
