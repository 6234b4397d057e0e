#include <gtest/gtest.h>

#include "IdentifyXml.h"
#include "orlo/features/identify/NVMe_NamespaceGranularityList.h"
#include "orlo/features/identify/NVMe_PrimaryControllerCapabilities.h"
#include "orlo/features/identify/NVMe_SecondaryControllerList.h"

namespace {

using namespace identify_test;
using orlo::core::Payload;
namespace nvme = orlo::features::identify::nvme;

TEST(PrimaryControllerCapabilities, FieldsInBareHex) {
  const auto reply = payloadWith(4096, {{0, {0x01, 0x0A, 0, 0, 0xFE, 0x77}},
                                        {32, {0x78, 0x56, 0x34, 0x12}},
                                        {40, {0xEF, 0xBE}},
                                        {64, {0, 0, 0, 0x80, 0x01}},
                                        {78, {0x10, 0, 0x55}}});
  EXPECT_EQ(xmlOf(nvme::primaryControllerCapabilities::toXmlObject(reply)),
            treeXml(named("Primary Controller Capabilities"), R"(
O Byte 0-1|Controller Identifier|A01
O Byte 2-3|Port Identifier|0
O Byte 4|Controller Resource Types|FE
  P Bit 7:2|Reserved|0x3F
  P Bit 1|VI Resources Supported|1
  P Bit 0|VQ Resources Supported|0
O Byte 5-31|Reserved|
O Byte 32-35|VQ Resources Flexible Total|12345678
O Byte 36-39|VQ Resources Flexible Assigned|0
O Byte 40-41|VQ Resources Flexible Allocated to Primary|BEEF
O Byte 42-43|VQ Resources Private Total|0
O Byte 44-45|VQ Resources Flexible Secondary Maximum|0
O Byte 46-47|VQ Flexible Resource Preferred Granularity|0
O Byte 48-63|Reserved|
O Byte 64-67|VI Resources Flexible Total|80000000
O Byte 68-71|VI Resources Flexible Assigned|1
O Byte 72-73|VI Resources Flexible Allocated to Primary|0
O Byte 74-75|VI Resources Private Total|0
O Byte 76-77|VI Resources Flexible Secondary Maximum|0
O Byte 78-79|VI Flexible Resource Preferred Granularity|10
O Byte 80-4095|Reserved|)"));
  EXPECT_EQ(xmlOf(nvme::primaryControllerCapabilities::toXmlObject(Payload(4095))),
            "<Object></Object>");
}

TEST(SecondaryControllerList, EntriesAsCountedWithTheirOwnLabels) {
  const auto reply = payloadWith(4096, {{0, {2, 0xFF}},
                                        {32, {0x03, 0, 0x01, 0, 0xFF, 0xEE, 0, 0, 0x02, 0, 0x10}},
                                        {64, {0x2B, 0x0C}},
                                        {96, {0x09}}});
  EXPECT_EQ(xmlOf(nvme::secondaryControllerList::toXmlObject(reply)),
            treeXml(named("Secondary Controller List"), R"(
O Byte 0|Number of Identifiers|2
O Byte 1-31|Reserved|
O Byte 32-31|SC Entry 0|
  O Byte 0-1|Secondary Controller Identifier|3
  O Byte 2-3|Primary Controller Identifier|1
  O Byte 4|Secondary Controller State|255
    P Bit 7:1|Reserved|0x7F
    P Bit 0|Online State|1
  O Byte 5-7|Reserved|
  O Byte 8-9|Virtual Function Number|2
  O Byte 10-11|Number of VQ Flexible Resources Assigned|10
  O Byte 12-13|Number of VI Flexible Resources Assigned|0
  O Byte 14-31|Reserved|
O Byte 64-63|SC Entry 1|
  O Byte 0-1|Secondary Controller Identifier|C2B
  O Byte 2-3|Primary Controller Identifier|0
  O Byte 4|Secondary Controller State|0
    P Bit 7:1|Reserved|0x0
    P Bit 0|Online State|0
  O Byte 5-7|Reserved|
  O Byte 8-9|Virtual Function Number|0
  O Byte 10-11|Number of VQ Flexible Resources Assigned|0
  O Byte 12-13|Number of VI Flexible Resources Assigned|0
  O Byte 14-31|Reserved|)"));
  EXPECT_EQ(xmlOf(nvme::secondaryControllerList::toXmlObject(Payload(4095))), "<Object></Object>");
  // 255 entries are counted, but only 127 fit in the reply after its header.
  const auto counted = payloadWith(4096, {{0, {255}}});
  EXPECT_EQ(nvme::secondaryControllerList::toXmlObject(counted)->objects().size(), 2u + 127u);
}

TEST(NamespaceGranularityList, DescriptorsAsCountedFrom288Bytes) {
  const auto reply = payloadWith(288, {{0, {0x03, 0, 0, 0, 2}},
                                       {32, {0, 0x10, 0, 0, 0, 0, 0, 0, 0, 0x20}},
                                       {48, {0x01}},
                                       {64, {0x09}}});
  EXPECT_EQ(xmlOf(nvme::namespaceGranularityList::toXmlObject(reply)), treeXml("", R"(
P Namespace Granularity Attributes|Granularity Descriptor Mapping|1
P Number of Descriptors||2
P Namespace Size Granularity||0x0000000000001000
P Namespace Capacity Granularity||0x0000000000002000
P Namespace Size Granularity||0x0000000000000001
P Namespace Capacity Granularity||0x0000000000000000)"));
  EXPECT_EQ(xmlOf(nvme::namespaceGranularityList::toXmlObject(payloadWith(288, {{64, {1}}}))),
            treeXml("", R"(
P Namespace Granularity Attributes|Granularity Descriptor Mapping|0
P Number of Descriptors||0)"));
  EXPECT_EQ(xmlOf(nvme::namespaceGranularityList::toXmlObject(Payload(287))), "<Object></Object>");
  // A count of 255 in the 288 bytes that the structure needs: the 16 descriptors that fit.
  const auto counted = payloadWith(288, {{4, {255}}});
  EXPECT_EQ(nvme::namespaceGranularityList::toXmlObject(counted)->properties().size(), 2u + 32u);
}

}  // namespace
