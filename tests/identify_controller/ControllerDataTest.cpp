#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "orlo/core/ProductNames.h"
#include "orlo/core/PropertyDescriptors.h"
#include "orlo/core/Strings.h"
#include "orlo/features/identify/NVMe_ControllerData.h"
#include "support/ExpectedText.h"

namespace controllerData = orlo::features::identify::nvme::controllerData;
namespace properties = orlo::core::properties;
namespace products = orlo::core::products;
using orlo::core::Attribute;
using orlo::core::AttributeCollection;
using orlo::core::Payload;
using orlo::testing::expectedXml;
using orlo::testing::xmlText;

namespace {

void putText(Payload& payload, uint32_t offset, const std::string& text) {
  for (size_t i = 0; i < text.size(); ++i) payload[offset + i] = static_cast<uint8_t>(text[i]);
}

// Writes the runs of a file of lines "offset bytes-in-hex" or 'offset "text"' into a reply.
void overlay(Payload& reply, const std::string& name) {
  std::istringstream in(orlo::testing::testData("identify_controller/" + name));
  for (std::string line; std::getline(in, line);) {
    std::istringstream fields(line);
    uint32_t offset = 0;
    fields >> offset >> std::ws;
    if (std::string text; fields.peek() == '"' && std::getline(fields.ignore(), text, '"')) {
      putText(reply, offset, text);
      continue;
    }
    for (unsigned byte = 0; fields >> std::hex >> byte;)
      reply[offset++] = static_cast<uint8_t>(byte);
  }
}

// A made-up drive whose values tell a wrong reading apart: the expected trees under
// data/identify_controller were worked out by hand from these bytes.
Payload craftedReply() {
  Payload reply(4096);
  overlay(reply, "crafted_reply.txt");
  return reply;
}

const std::vector<Attribute> kUpTo1Point4 = {
    properties::nvme1Point1OrGreater(), properties::nvme1Point2OrGreater(),
    properties::nvme1Point3OrGreater(), properties::nvme1Point4OrGreater()};

AttributeCollection drive(const std::vector<Attribute>& flags,
                          const std::vector<std::pair<Attribute, std::string>>& texts = {}) {
  AttributeCollection attributes;
  for (const Attribute& flag : flags) orlo::core::writeUInt8(attributes, flag, 1);
  for (const auto& [descriptor, text] : texts)
    orlo::core::writeString(attributes, descriptor, text);
  return attributes;
}

// The labels and XML of the fields that follow the power state descriptors.
std::pair<std::string, std::string> vendorTail(const Payload& reply,
                                               const AttributeCollection& attributes) {
  const auto root = controllerData::toXmlObject(reply, attributes);
  std::string labels;
  std::string text;
  bool afterPowerStates = false;
  for (const auto& child : root->objects()) {
    if (child->getAttribute("description").rfind("Power State ", 0) == 0) {
      afterPowerStates = true;
    } else if (afterPowerStates) {
      labels += (labels.empty() ? "" : "|") + child->getAttribute("name");
      text += xmlText(*child);
    }
  }
  return {labels, text};
}

}  // namespace

TEST(ControllerData, WholeTreeFollowsTheVersionAttributes) {
  const std::vector<std::pair<std::string, std::vector<Attribute>>> cases = {
      {"none.xml", {}},
      {"nvme1_1_only.xml", {properties::nvme1Point1OrGreater()}},
      {"nvme1_2_only.xml", {properties::nvme1Point2OrGreater()}},
      {"nvme1_3_only.xml", {properties::nvme1Point3OrGreater()}},
      {"nvme1_4.xml", kUpTo1Point4},
      {"nvme2_0.xml",
       {kUpTo1Point4[0], kUpTo1Point4[1], kUpTo1Point4[2], kUpTo1Point4[3],
        properties::nvme2Point0OrGreater()}},
  };
  for (const auto& [file, flags] : cases) {
    SCOPED_TRACE(file);
    const std::string expected = expectedXml("identify_controller/" + file);
    ASSERT_FALSE(expected.empty());
    EXPECT_EQ(xmlText(*controllerData::toXmlObject(craftedReply(), drive(flags))), expected);
  }
}

TEST(ControllerData, PowerStatesNumberByte263PlusOneAndStopAtThePayloadsEnd) {
  struct Case {
    uint32_t size;
    uint8_t byte263;
    size_t count;
    std::string last;
  };
  const std::vector<Case> cases = {
      {4096, 0, 1, "Byte 2048-2079"},        {4096, 2, 3, "Byte 2112-2143"},
      {4096, 255, 64, "Byte 4064-4095"},     {8192, 255, 192, "Byte 8160-8191"},
      {16384, 255, 256, "Byte 10208-10239"},
  };
  for (const Case& c : cases) {
    Payload reply(c.size);
    reply[263] = c.byte263;
    const auto root = controllerData::toXmlObject(reply, AttributeCollection());
    std::vector<std::string> names;
    for (const auto& child : root->objects()) {
      if (child->getAttribute("description").rfind("Power State ", 0) == 0) {
        names.push_back(child->getAttribute("name"));
      }
    }
    ASSERT_EQ(names.size(), c.count) << c.size << " " << int(c.byte263);
    EXPECT_EQ(names.back(), c.last);
  }
}

TEST(ControllerData, VendorBlocksFollowProductAndOem) {
  const std::string veldra =
      "Byte 3075|Byte 3076-3095|Byte 3096|Byte 3097|Byte 3098|Byte 3099|Byte 3100-3107";
  const std::string bridge =
      "Byte 3840|Byte 3841|Byte 3842|Byte 3843|Byte 3844|Byte 3904|Byte 3905-3912|"
      "Byte 3913-3914|Byte 3936|Byte 3937|Byte 3938|Byte 3939|Byte 3940|Byte 3941";
  const std::string oem =
      "Byte 3108-3109|Byte 3110-3111|Byte 3112-3113| Byte 3114-3115|Byte 3116-3123|"
      "Byte 3124-3139";
  struct Case {
    bool veldraNVMe;
    std::string product;
    std::string oem;
    std::string labels;
  };
  const std::vector<Case> cases = {
      {true, products::ProductFamilyOneRefresh + " 2TB", "", "Byte 3072|" + veldra},
      {true, "x " + products::ProductFamilyOneRR, "", "Byte 3072|" + veldra},
      {true, products::ProductFamilyFour, "", veldra},
      {false, products::ProductFamilyOneRefresh, "", ""},
      {false, products::ProductFamilyThree, "Oracle", bridge},
      {false, products::ProductFamilyThree + " Plus", "", ""},
      {false, products::ProductFamilyFourDP, "Oracle", bridge + "|" + oem},
      {false, products::ProductFamilyFourDP + "X", "Oracle", oem},
      {false, "[" + orlo::core::strings::toUpper(products::ProductFamilyFour) + "]", "Oracle", oem},
      {false, products::ProductFamilyFour, "oracle", ""},
  };
  for (const Case& c : cases) {
    const AttributeCollection attributes = drive(
        c.veldraNVMe ? std::vector<Attribute>{properties::veldraNVMe()} : std::vector<Attribute>{},
        {{properties::product(), c.product}, {properties::oem(), c.oem}});
    EXPECT_EQ(vendorTail(craftedReply(), attributes).first, c.labels) << c.product << "/" << c.oem;
  }
}

TEST(ControllerData, VendorFieldsShowTheirBytes) {
  Payload reply = craftedReply();
  overlay(reply, "vendor_bytes.txt");
  const AttributeCollection attributes = drive(
      {properties::veldraNVMe()},
      {{properties::product(), products::ProductFamilyFourDP}, {properties::oem(), "Oracle"}});
  EXPECT_EQ(vendorTail(reply, attributes).second,
            expectedXml("identify_controller/vendor_fields.xml"));

  const auto valueOf = [&](const std::string& label) {
    const auto root = controllerData::toXmlObject(reply, attributes);
    return root->find("Object", "name", label, 2).at(0)->getAttribute("value");
  };
  reply[3075] = 0;
  EXPECT_EQ(valueOf("Byte 3075"), "0 (Driver assisted striping not supported by FW)");
  reply[3075] = 6;
  EXPECT_EQ(valueOf("Byte 3075"), "6 (Unknown)");
  putText(reply, 3076, " OK ");
  EXPECT_EQ(valueOf("Byte 3076-3095"), "OK");
}
