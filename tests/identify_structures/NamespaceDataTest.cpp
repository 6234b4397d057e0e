#include <gtest/gtest.h>

#include "PayloadWith.h"
#include "orlo/core/AttributeCollection.h"
#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/identify/NVMe_NamespaceData.h"
#include "support/ExpectedText.h"

namespace {

using namespace identify_test;
using orlo::core::AttributeCollection;
using orlo::testing::expectedXml;
using orlo::testing::xmlText;
namespace properties = orlo::core::properties;
namespace namespaceData = orlo::features::identify::nvme::namespaceData;

// Byte 25 marks formats 0 and 1 as in use.
orlo::core::Payload namespaceStructure() {
  return payloadWith(
      4096, {{4, {0x01}},
             {8, {0x34, 0x12}},
             {24, {0xB5, 0x01, 0x3A, 0x06, 0x2D, 0x0C, 0x01, 0x81, 0x85, 0x1D, 0x34, 0x12, 0xAB}},
             {46, {0x02, 0x01, 0x11}},
             {63, {0xFF, 0x08}},
             {80, {0xEE}},
             {92, {0x04, 0x03, 0x02, 0x01, 0, 0, 0, 0x03, 0x01, 0, 0x02, 0}},
             {104, {1, 2, 3, 4, 5, 6, 7, 8, 0xA1, 0xA2, 0xA3, 0xA4}},
             {116, {0xA5, 0xA6, 0xA7, 0x00, 0x88, 0x77, 0x66, 0x55, 0x44, 0x33, 0x22, 0x11}},
             {128, {0x10, 0, 0x09, 0xC6, 0x08, 0, 0x0C, 0x01, 0, 0, 0x09, 0x03}},
             {192, {0xFF}}});
}

TEST(NamespaceData, WholeTreeForEachVersion) {
  const auto v11 = properties::nvme1Point1OrGreater(), v12 = properties::nvme1Point2OrGreater(),
             v13 = properties::nvme1Point3OrGreater(), v14 = properties::nvme1Point4OrGreater(),
             v20 = properties::nvme2Point0OrGreater();
  const struct {
    const char* file;
    std::vector<orlo::core::Attribute> announced;
  } cases[] = {
      {"namespace_data_none.xml", {}},
      {"namespace_data_1_2.xml", {v12}},
      {"namespace_data_1_3.xml", {v12, v13}},
      {"namespace_data_1_4.xml", {v11, v12, v13, v14}},
      {"namespace_data_1_4.xml", {v11, v12, v13, v14, v20}},
  };
  for (const auto& c : cases) {
    AttributeCollection device;
    for (const auto& version : c.announced) {
      orlo::core::writeUInt8(device, version, 1);
    }
    EXPECT_EQ(xmlText(*namespaceData::toXmlObject(namespaceStructure(), device)),
              expectedXml(std::string("identify_structures/") + c.file))
        << c.file << " " << c.announced.size();
  }
}

TEST(NamespaceData, ShortPayloadGivesBareRootOfItsOwnClass) {
  const auto root = namespaceData::toXmlObject(orlo::core::Payload(4095), AttributeCollection());
  EXPECT_EQ(xmlText(*root), "<Object></Object>");
  EXPECT_NE(dynamic_cast<namespaceData::XmlObject*>(root.get()), nullptr);
}

}  // namespace
