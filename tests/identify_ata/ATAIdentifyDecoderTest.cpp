#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/identify/ATAIdentifyDecoder.h"

namespace {

using orlo::core::AttributeCollection;
using orlo::core::Payload;
using orlo::core::xml::XmlElement;
using orlo::features::identify::ata::decodeIdentifyDevice;
namespace properties = orlo::core::properties;

void setWord(Payload& data, unsigned index, uint16_t word) {
  data[2 * index] = static_cast<uint8_t>(word);
  data[2 * index + 1] = static_cast<uint8_t>(word >> 8);
}

// Every byte differs from its neighbours, so a value read from the wrong place or in
// the wrong order shows; words 0, 7-8 and 60-61 hold the examples checked below.
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

std::string written(const XmlElement& tree) {
  std::string text;
  tree.write(text);
  return text;
}

// The expected tree is kept one element a line; the writer puts it on one line.
std::string expectedTree() {
  std::ifstream file(ORLO_TEST_DATA_DIR "/identify_ata/identify_device.xml");
  std::string text(std::istreambuf_iterator<char>(file), {});
  text.erase(std::remove(text.begin(), text.end(), '\n'), text.end());
  return text;
}

std::string valueNamed(const XmlElement& tree, const std::string& name, uint8_t depth) {
  const auto found = tree.find("", "name", name, depth);
  return found.size() == 1 ? found[0]->getAttribute("value") : "(" + name + " not found once)";
}

TEST(ATAIdentifyDecoder, CraftedDataGivesTheExpectedTree) {
  const std::string expected = expectedTree();
  ASSERT_FALSE(expected.empty());
  EXPECT_EQ(written(*decodeIdentifyDevice(craftedData(), craftedDevice())), expected);
}

TEST(ATAIdentifyDecoder, DataShorterThanOneSectorGivesABareRoot) {
  for (uint32_t size : {0u, 1u, 511u}) {
    EXPECT_EQ(written(*decodeIdentifyDevice(Payload(size), craftedDevice())), "<Object></Object>")
        << size;
  }
}

TEST(ATAIdentifyDecoder, WordOrderAndBitFieldsOfSingleRows) {
  const auto tree = decodeIdentifyDevice(craftedData(), AttributeCollection());
  EXPECT_EQ(valueNamed(*tree, "Word 60-61", 2), "ABCD1234");
  EXPECT_EQ(valueNamed(*tree, "Word 7-8", 2), "1234ABCD");
  // The payload holds bytes at words 10-19, but only the device is asked.
  EXPECT_EQ(valueNamed(*tree, "Word 10-19", 2), "");

  const auto word0 = tree->find("Object", "name", "Word 0", 2);
  ASSERT_EQ(word0.size(), 1u);
  EXPECT_EQ(word0[0]->getAttribute("value"), "8A5A");
  const std::pair<const char*, const char*> bits[] = {
      {"Bit 15", "1"}, {"Bit 14:8", "0A"}, {"Bit 7:6", "1"}, {"Bit 5:3", "1"}, {"Bit 2", "0"}};
  for (const auto& [name, value] : bits) EXPECT_EQ(valueNamed(*word0[0], name, 1), value) << name;
}

// Sizes around and far beyond one sector, with random contents: a read past the
// payload is caught by the address sanitizer.
TEST(ATAIdentifyDecoder, AnySizeAndContentDecodesWithinBounds) {
  std::mt19937 random(20240611);
  for (uint32_t size = 0; size <= 4096; size += 73) {
    Payload data(size);
    for (uint32_t index = 0; index < size; ++index) data[index] = static_cast<uint8_t>(random());
    const auto tree = decodeIdentifyDevice(data, craftedDevice());
    EXPECT_EQ(tree->find("Object", "", "", 2).size(), size < 512 ? 1u : 99u) << size;
  }
}

}  // namespace
