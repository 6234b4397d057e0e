#include <gtest/gtest.h>

#include "IdentifyXml.h"
#include "orlo/core/AttributeCollection.h"
#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/identify/NVMe_NamespaceData.h"

namespace {

using namespace identify_test;
using orlo::core::AttributeCollection;
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

std::string firstTable(const std::string& newerBitsOfByte24) {
  return R"(
O Bytes 07:00|Namespace Size|4294967296
O Bytes 15:08|Namespace Capacity|4660
O Bytes 23:16|Namespace Utilization|0
O Byte 24|Namespace Features|0xB5
  P Bits 7:5|Reserved|5)" +
         newerBitsOfByte24 + R"(
  P Bit 0|Thin Provisioning Support|1
O Byte 25|Number of LBA Formats|0x01
O Byte 26|Formatted LBA Size|0x3A
  P Bits 7:5|Reserved|1
  P Bit 4|Metadata transfer bit|1
  P Bits 0:3|LBA Format Support|10
O Byte 27|Metadata Capabilities|0x06
  P Bits 7:2|Reserved|1
  P Bit 1|Metadata transferred as part of a separate buffer support|1
  P Bit 0|Metadata transferred part of extended data LBA Support|0
O Byte 28|End-to-end Data Protection Capabilities|0x2D
  P Bits 7:5|Reserved|1
  P Bit 4|Protection Info transferred as last 8 bytes of metadata Support|0
  P Bit 3|Protection Info transferred as first 8 bytes of metadata Support|1
  P Bit 2|Protection Type 3 Support|1
  P Bit 1|Protection Type 2 Support|0
  P Bit 0|Protection Type 1 Support|1
O Byte 29|End-to-end Data Protection Type Settings|0x0C
  P Bits 7:4|Reserved|0x0
  P Bit 3|Protection Information Transfer|1 (Transferred as the first eight bytes of metadata.)
  P Bits 2:0|Protection Type Information|4 (Reserved))";
}
const std::string kBit4 = "\n  P Bit 4|NPWG, NPWA, NPDG, NPDA, NOWS Fields Support|1";
const std::string kBit3 = "\n  P Bit 3|Non-Zero NGUID and EUI64 Non-Reuse Support|0";
const std::string kBits2And1 = R"(
  P Bit 2|Unwritten Logical Block Error Support|1
  P Bit 1|NAWUN, NAWUPF, NACWU Fields Support|0)";

// Before NVMe 1.3: no bit 7 in byte 31, and bytes 33 and 47:46 reserved.
std::string secondTable(bool nvme1Point3) {
  return R"(
O Byte 30|Namespace Multi-path I/O and Sharing Capabilities|01
  P Bits 7:1|Reserved|0x0
  P Bit 0|Namespace is Private/Shared|1
O Byte 31|Reservation Capabilities|0x81)" +
         std::string(nvme1Point3 ? "\n  P Bit 7|Ignore Existing Key Revision Support|1" : "") +
         R"(
  P Bit 6|Exclusive Access All Registrants supported|0
  P Bit 5|Write Exclusive All Registrants supported|0
  P Bit 4|Exclusive Access Registrants Only supported |0
  P Bit 3|Write Exclusive Registrants Only supported|0
  P Bit 2|Exclusive Access supported|0
  P Bit 1|Write Exclusive supported|0
  P Bit 0|Protection Type 1 Support|1
O Byte 32|Format Progress Indicator|0x85
  P Bit 7|Supported|1
  P Bits 6:0|Percentage Remaining|5)" +
         (nvme1Point3 ? R"(
O Byte 33|Deallocate Logical Block Features|0x1D
  P Bits 7:5|Reserved|0x0
  P Bit 4|Guard Field for Deallocated Logical Blocks Value|1
  P Bit 3|Deallocate Bit in Write Zeroes Command Supported|1
  P Bits 2:0|Deallocated Logical Block and Metadata Value|5)"
                      : "\nO Byte 33|Reserved|") +
         R"(
O Bytes 35:34|Namespace Atomic Write Unit Normal|0x1234
O Bytes 37:36|Namespace Atomic Write Unit Power Fail|0x00AB
O Bytes 39:38|Namespace Atomic Compare &amp; Write Unit|0x0000
O Bytes 41:40|Namespace Atomic Boundary Size Normal|0x0000
O Bytes 43:42|Namespace Atomic Boundary Offset|0x0000
O Bytes 45:44|Namespace Atomic Boundary Size Power Fail|0x0000)" +
         (nvme1Point3 ? "\nO Bytes 47:46|Namespace Optimal I/O Boundary|0x0102"
                      : "\nO Bytes 47:46|Reserved|") +
         "\nO Bytes 63:48|NVM Capacity|0xFF000000000000000000000000000011";
}

const std::string kThirdTable = R"(
O Bytes 65:64|Namespace Preferred Write Granularity|0x0008
O Bytes 67:66|Namespace Preferred Write Alignment|0x0000
O Bytes 69:68|Namespace Preferred Deallocate Granularity|0x0000
O Bytes 71:70|Namespace Preferred Deallocate Alignment|0x0000
O Bytes 73:72|Namespace Optimal Write Size|0x0000
O Bytes 91:74|Reserved|
O Bytes 95:92|ANA Group Identifier|0x01020304
O Bytes 98:96|Reserved|
O Byte 99|Namespace Attributes|0x03
  P Bits 7:1|Reserved|0x1
  P Bit 0|Write Protected|1
O Bytes 101:100|NVM Set Identifier|0x0001
O Bytes 103:102|Endurance Group Identifier|0x0002)";

const std::string kFourthTable = R"(
O Bytes 119:104|Namespace Globally Unique Identifier|0x00A7A6A5A4A3A2A10807060504030201
  P Bytes 111:104|Vendor Specific Extension|0x0807060504030201
  P Bytes 114:112|Organizationally Unique Identifier|0xA3A2A1
  P Bytes 119:115|Extension Identifier|0x00A7A6A5A4
O Bytes 127:120|IEEE Extended Unique Identifier|0x1122334455667788)";

const std::string kLbaFormats = R"(
O Bytes 131:128|LBA Format 0 Support|0xC6090010
  P Bits 31:26|Reserved|0x31
  P Bits 25:24|Relative Performance|0x2 (Good performance)
  P Bits 23:16|LBA Data Size|0x09
  P Bits 15:0|Metadata Size|0x0010
O Bytes 135:132|LBA Format 1 Support|0x010C0008
  P Bits 31:26|Reserved|0x0
  P Bits 25:24|Relative Performance|0x1 (Better performance)
  P Bits 23:16|LBA Data Size|0x0C
  P Bits 15:0|Metadata Size|0x0008
O Bytes 139:136|LBA Format 2 Support (N/A)|0x03090000
O Bytes 143:140|LBA Format 3 Support (N/A)|0x00000000
O Bytes 147:144|LBA Format 4 Support (N/A)|0x00000000
O Bytes 151:148|LBA Format 5 Support (N/A)|0x00000000
O Bytes 155:152|LBA Format 6 Support (N/A)|0x00000000
O Bytes 159:156|LBA Format 7 Support (N/A)|0x00000000
O Bytes 163:160|LBA Format 8 Support (N/A)|0x00000000
O Bytes 167:164|LBA Format 9 Support (N/A)|0x00000000
O Bytes 171:168|LBA Format 10 Support (N/A)|0x00000000
O Bytes 175:172|LBA Format 11 Support (N/A)|0x00000000
O Bytes 179:176|LBA Format 12 Support (N/A)|0x00000000
O Bytes 183:180|LBA Format 13 Support (N/A)|0x00000000
O Bytes 187:184|LBA Format 14 Support (N/A)|0x00000000
O Bytes 191:188|LBA Format 15 Support (N/A)|0x00000000)";

std::string tree(const std::string& fields) {
  return treeXml(named("Identify Namespace"), fields + kLbaFormats);
}

TEST(NamespaceData, WholeTreeForEachVersion) {
  const auto v11 = properties::nvme1Point1OrGreater(), v12 = properties::nvme1Point2OrGreater(),
             v13 = properties::nvme1Point3OrGreater(), v14 = properties::nvme1Point4OrGreater(),
             v20 = properties::nvme2Point0OrGreater();
  const std::string upTo103 = "\nO Bytes 103:64|Reserved|";
  const std::string newest =
      tree(firstTable(kBit4 + kBit3 + kBits2And1) + secondTable(true) + kThirdTable + kFourthTable);
  const struct {
    const char* versions;
    std::vector<orlo::core::Attribute> announced;
    std::string expected;
  } cases[] = {
      {"none", {}, tree(firstTable(""))},
      {"1.2", {v12}, tree(firstTable(kBits2And1) + secondTable(false) + upTo103 + kFourthTable)},
      {"1.3",
       {v12, v13},
       tree(firstTable(kBit3 + kBits2And1) + secondTable(true) + upTo103 + kFourthTable)},
      {"1.4", {v11, v12, v13, v14}, newest},
      {"2.0", {v11, v12, v13, v14, v20}, newest},
  };
  for (const auto& c : cases) {
    AttributeCollection device;
    for (const auto& version : c.announced) {
      orlo::core::writeUInt8(device, version, 1);
    }
    EXPECT_EQ(xmlOf(namespaceData::toXmlObject(namespaceStructure(), device)), c.expected)
        << c.versions;
  }
}

TEST(NamespaceData, ShortPayloadGivesBareRootOfItsOwnClass) {
  const auto root = namespaceData::toXmlObject(orlo::core::Payload(4095), AttributeCollection());
  EXPECT_EQ(xmlOf(root), "<Object></Object>");
  EXPECT_NE(dynamic_cast<namespaceData::XmlObject*>(root.get()), nullptr);
}

}  // namespace
