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

orlo::core::Payload namespaceStructure(uint8_t formatsInUse) {
  return payloadWith(
      4096,
      {{4, {0x01}},
       {8, {0x34, 0x12}},
       {24, {0xB5, formatsInUse, 0x3A, 0x06, 0x2D, 0x0C, 0x01, 0x81, 0x85, 0x1D, 0x34, 0x12, 0xAB}},
       {46, {0x02, 0x01, 0x11}},
       {63, {0xFF, 0x08}},
       {80, {0xEE}},
       {92, {0x04, 0x03, 0x02, 0x01, 0, 0, 0, 0x03, 0x01, 0, 0x02, 0}},
       {104, {1,    2,    3,    4,    5,    6,    7,    8,    0xA1, 0xA2, 0xA3, 0xA4,
              0xA5, 0xA6, 0xA7, 0x00, 0x88, 0x77, 0x66, 0x55, 0x44, 0x33, 0x22, 0x11}},
       {128, {0x10, 0, 0x09, 0xC6, 0x08, 0, 0x0C, 0x01, 0, 0, 0x09, 0x03}},
       {192, {0xFF}}});
}

std::string byte24(const std::string& newerBits) {
  return object("Byte 24", "Namespace Features", "0xB5",
                property("Bits 7:5", "Reserved", "5") + newerBits +
                    property("Bit 0", "Thin Provisioning Support", "1"));
}
const std::string kBit4 = property("Bit 4", "NPWG, NPWA, NPDG, NPDA, NOWS Fields Support", "1");
const std::string kBit3 = property("Bit 3", "Non-Zero NGUID and EUI64 Non-Reuse Support", "0");
const std::string kBits2And1 = property("Bit 2", "Unwritten Logical Block Error Support", "1") +
                               property("Bit 1", "NAWUN, NAWUPF, NACWU Fields Support", "0");

std::string firstTable(const std::string& byte24) {
  return object("Bytes 07:00", "Namespace Size", "4294967296") +
         object("Bytes 15:08", "Namespace Capacity", "4660") +
         object("Bytes 23:16", "Namespace Utilization", "0") + byte24 +
         object("Byte 25", "Number of LBA Formats", "0x01") +
         object("Byte 26", "Formatted LBA Size", "0x3A",
                property("Bits 7:5", "Reserved", "1") +
                    property("Bit 4", "Metadata transfer bit", "1") +
                    property("Bits 0:3", "LBA Format Support", "10")) +
         object(
             "Byte 27", "Metadata Capabilities", "0x06",
             property("Bits 7:2", "Reserved", "1") +
                 property("Bit 1", "Metadata transferred as part of a separate buffer support",
                          "1") +
                 property("Bit 0", "Metadata transferred part of extended data LBA Support", "0")) +
         object(
             "Byte 28", "End-to-end Data Protection Capabilities", "0x2D",
             property("Bits 7:5", "Reserved", "1") +
                 property("Bit 4",
                          "Protection Info transferred as last 8 bytes of metadata Support", "0") +
                 property("Bit 3",
                          "Protection Info transferred as first 8 bytes of metadata Support", "1") +
                 property("Bit 2", "Protection Type 3 Support", "1") +
                 property("Bit 1", "Protection Type 2 Support", "0") +
                 property("Bit 0", "Protection Type 1 Support", "1")) +
         object("Byte 29", "End-to-end Data Protection Type Settings", "0x0C",
                property("Bits 7:4", "Reserved", "0x0") +
                    property("Bit 3", "Protection Information Transfer",
                             "1 (Transferred as the first eight bytes of metadata.)") +
                    property("Bits 2:0", "Protection Type Information", "4 (Reserved)"));
}

// Byte 31 without and with its bit 7, byte 33 and bytes 47:46 reserved or shown.
std::string secondTable(bool nvme1Point3) {
  const std::string bit7 =
      nvme1Point3 ? property("Bit 7", "Ignore Existing Key Revision Support", "1") : "";
  const std::string byte33 =
      nvme1Point3
          ? object("Byte 33", "Deallocate Logical Block Features", "0x1D",
                   property("Bits 7:5", "Reserved", "0x0") +
                       property("Bit 4", "Guard Field for Deallocated Logical Blocks Value", "1") +
                       property("Bit 3", "Deallocate Bit in Write Zeroes Command Supported", "1") +
                       property("Bits 2:0", "Deallocated Logical Block and Metadata Value", "5"))
          : object("Byte 33", "Reserved", "");
  const std::string bytes47To46 =
      nvme1Point3 ? object("Bytes 47:46", "Namespace Optimal I/O Boundary", "0x0102")
                  : object("Bytes 47:46", "Reserved", "");
  return object("Byte 30", "Namespace Multi-path I/O and Sharing Capabilities", "01",
                property("Bits 7:1", "Reserved", "0x0") +
                    property("Bit 0", "Namespace is Private/Shared", "1")) +
         object("Byte 31", "Reservation Capabilities", "0x81",
                bit7 + property("Bit 6", "Exclusive Access All Registrants supported", "0") +
                    property("Bit 5", "Write Exclusive All Registrants supported", "0") +
                    property("Bit 4", "Exclusive Access Registrants Only supported ", "0") +
                    property("Bit 3", "Write Exclusive Registrants Only supported", "0") +
                    property("Bit 2", "Exclusive Access supported", "0") +
                    property("Bit 1", "Write Exclusive supported", "0") +
                    property("Bit 0", "Protection Type 1 Support", "1")) +
         object("Byte 32", "Format Progress Indicator", "0x85",
                property("Bit 7", "Supported", "1") +
                    property("Bits 6:0", "Percentage Remaining", "5")) +
         byte33 + object("Bytes 35:34", "Namespace Atomic Write Unit Normal", "0x1234") +
         object("Bytes 37:36", "Namespace Atomic Write Unit Power Fail", "0x00AB") +
         object("Bytes 39:38", "Namespace Atomic Compare &amp; Write Unit", "0x0000") +
         object("Bytes 41:40", "Namespace Atomic Boundary Size Normal", "0x0000") +
         object("Bytes 43:42", "Namespace Atomic Boundary Offset", "0x0000") +
         object("Bytes 45:44", "Namespace Atomic Boundary Size Power Fail", "0x0000") +
         bytes47To46 + object("Bytes 63:48", "NVM Capacity", "0xFF000000000000000000000000000011");
}

const std::string kThirdTable =
    object("Bytes 65:64", "Namespace Preferred Write Granularity", "0x0008") +
    object("Bytes 67:66", "Namespace Preferred Write Alignment", "0x0000") +
    object("Bytes 69:68", "Namespace Preferred Deallocate Granularity", "0x0000") +
    object("Bytes 71:70", "Namespace Preferred Deallocate Alignment", "0x0000") +
    object("Bytes 73:72", "Namespace Optimal Write Size", "0x0000") +
    object("Bytes 91:74", "Reserved", "") +
    object("Bytes 95:92", "ANA Group Identifier", "0x01020304") +
    object("Bytes 98:96", "Reserved", "") +
    object("Byte 99", "Namespace Attributes", "0x03",
           property("Bits 7:1", "Reserved", "0x1") + property("Bit 0", "Write Protected", "1")) +
    object("Bytes 101:100", "NVM Set Identifier", "0x0001") +
    object("Bytes 103:102", "Endurance Group Identifier", "0x0002");

const std::string kFourthTable =
    object("Bytes 119:104", "Namespace Globally Unique Identifier",
           "0x00A7A6A5A4A3A2A10807060504030201",
           property("Bytes 111:104", "Vendor Specific Extension", "0x0807060504030201") +
               property("Bytes 114:112", "Organizationally Unique Identifier", "0xA3A2A1") +
               property("Bytes 119:115", "Extension Identifier", "0x00A7A6A5A4")) +
    object("Bytes 127:120", "IEEE Extended Unique Identifier", "0x1122334455667788");

std::string lbaFormats() {
  std::string formats =
      object("Bytes 131:128", "LBA Format 0 Support", "0xC6090010",
             property("Bits 31:26", "Reserved", "0x31") +
                 property("Bits 25:24", "Relative Performance", "0x2 (Good performance)") +
                 property("Bits 23:16", "LBA Data Size", "0x09") +
                 property("Bits 15:0", "Metadata Size", "0x0010")) +
      object("Bytes 135:132", "LBA Format 1 Support", "0x010C0008",
             property("Bits 31:26", "Reserved", "0x0") +
                 property("Bits 25:24", "Relative Performance", "0x1 (Better performance)") +
                 property("Bits 23:16", "LBA Data Size", "0x0C") +
                 property("Bits 15:0", "Metadata Size", "0x0008")) +
      object("Bytes 139:136", "LBA Format 2 Support (N/A)", "0x03090000");
  const char* const unused[] = {"143:140", "147:144", "151:148", "155:152", "159:156",
                                "163:160", "167:164", "171:168", "175:172", "179:176",
                                "183:180", "187:184", "191:188"};
  for (int i = 3; i < 16; ++i) {
    formats += object(std::string("Bytes ") + unused[i - 3],
                      "LBA Format " + std::to_string(i) + " Support (N/A)", "0x00000000");
  }
  return formats;
}

std::string tree(const std::string& fields) {
  return "<Object key=\"Identify Namespace\" name=\"Identify Namespace\">" + fields + lbaFormats() +
         "</Object>";
}

TEST(NamespaceData, WholeTreeForEachVersion) {
  const std::string reservedUpTo103 = object("Bytes 103:64", "Reserved", "");
  const struct {
    const char* versions;
    std::vector<orlo::core::Attribute> announced;
    std::string expected;
  } cases[] = {
      {"none", {}, tree(firstTable(byte24("")))},
      {"1.3 alone", {properties::nvme1Point3OrGreater()}, tree(firstTable(byte24(kBit3)))},
      {"1.2",
       {properties::nvme1Point2OrGreater()},
       tree(firstTable(byte24(kBits2And1)) + secondTable(false) + reservedUpTo103 + kFourthTable)},
      {"1.3",
       {properties::nvme1Point2OrGreater(), properties::nvme1Point3OrGreater()},
       tree(firstTable(byte24(kBit3 + kBits2And1)) + secondTable(true) + reservedUpTo103 +
            kFourthTable)},
      {"1.4",
       {properties::nvme1Point1OrGreater(), properties::nvme1Point2OrGreater(),
        properties::nvme1Point3OrGreater(), properties::nvme1Point4OrGreater()},
       tree(firstTable(byte24(kBit4 + kBit3 + kBits2And1)) + secondTable(true) + kThirdTable +
            kFourthTable)},
      {"2.0",
       {properties::nvme1Point1OrGreater(), properties::nvme1Point2OrGreater(),
        properties::nvme1Point3OrGreater(), properties::nvme1Point4OrGreater(),
        properties::nvme2Point0OrGreater()},
       tree(firstTable(byte24(kBit4 + kBit3 + kBits2And1)) + secondTable(true) + kThirdTable +
            kFourthTable)},
  };
  for (const auto& c : cases) {
    AttributeCollection device;
    for (const auto& version : c.announced) {
      orlo::core::writeUInt8(device, version, 1);
    }
    EXPECT_EQ(xmlOf(namespaceData::toXmlObject(namespaceStructure(1), device)), c.expected)
        << c.versions;
  }
}

TEST(NamespaceData, FormatsInUseFollowByte25AndShortPayloadGivesBareRoot) {
  for (const auto& [inUse, groups] : {std::pair{0, 1}, {15, 16}, {200, 16}}) {
    const auto root = namespaceData::toXmlObject(namespaceStructure(inUse), AttributeCollection());
    int formatGroups = 0;
    for (const auto& child : root->objects()) {
      formatGroups += child->getAttribute("description").find("LBA Format") == 0 &&
                      !static_cast<orlo::core::xml::XmlObject&>(*child).properties().empty();
    }
    EXPECT_EQ(formatGroups, groups) << inUse;
  }
  const auto shortRoot =
      namespaceData::toXmlObject(orlo::core::Payload(4095), AttributeCollection());
  EXPECT_EQ(xmlOf(shortRoot), "<Object></Object>");
  EXPECT_NE(dynamic_cast<namespaceData::XmlObject*>(shortRoot.get()), nullptr);
}

}  // namespace
