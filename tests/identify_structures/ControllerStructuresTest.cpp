#include <gtest/gtest.h>

#include "IdentifyXml.h"
#include "orlo/features/identify/NVMe_NamespaceGranularityList.h"
#include "orlo/features/identify/NVMe_PrimaryControllerCapabilities.h"
#include "orlo/features/identify/NVMe_SecondaryControllerList.h"

namespace {

using namespace identify_test;
namespace nvme = orlo::features::identify::nvme;

TEST(PrimaryControllerCapabilities, FieldsInBareHex) {
  const auto reply = payloadWith(4096, {{0, {0x01, 0x0A, 0, 0, 0xFE, 0x77}},
                                        {32, {0x78, 0x56, 0x34, 0x12}},
                                        {40, {0xEF, 0xBE}},
                                        {64, {0, 0, 0, 0x80, 0x01}},
                                        {78, {0x10, 0, 0x55}}});
  EXPECT_EQ(xmlOf(nvme::primaryControllerCapabilities::toXmlObject(reply)),
            "<Object key=\"Primary Controller Capabilities\" name=\"Primary Controller "
            "Capabilities\">" +
                object("Byte 0-1", "Controller Identifier", "A01") +
                object("Byte 2-3", "Port Identifier", "0") +
                object("Byte 4", "Controller Resource Types", "FE",
                       property("Bit 7:2", "Reserved", "0x3F") +
                           property("Bit 1", "VI Resources Supported", "1") +
                           property("Bit 0", "VQ Resources Supported", "0")) +
                object("Byte 5-31", "Reserved", "") +
                object("Byte 32-35", "VQ Resources Flexible Total", "12345678") +
                object("Byte 36-39", "VQ Resources Flexible Assigned", "0") +
                object("Byte 40-41", "VQ Resources Flexible Allocated to Primary", "BEEF") +
                object("Byte 42-43", "VQ Resources Private Total", "0") +
                object("Byte 44-45", "VQ Resources Flexible Secondary Maximum", "0") +
                object("Byte 46-47", "VQ Flexible Resource Preferred Granularity", "0") +
                object("Byte 48-63", "Reserved", "") +
                object("Byte 64-67", "VI Resources Flexible Total", "80000000") +
                object("Byte 68-71", "VI Resources Flexible Assigned", "1") +
                object("Byte 72-73", "VI Resources Flexible Allocated to Primary", "0") +
                object("Byte 74-75", "VI Resources Private Total", "0") +
                object("Byte 76-77", "VI Resources Flexible Secondary Maximum", "0") +
                object("Byte 78-79", "VI Flexible Resource Preferred Granularity", "10") +
                object("Byte 80-4095", "Reserved", "") + "</Object>");
  EXPECT_EQ(xmlOf(nvme::primaryControllerCapabilities::toXmlObject(orlo::core::Payload(4095))),
            "<Object></Object>");
}

TEST(SecondaryControllerList, EntriesAsCountedWithTheirOwnLabels) {
  const auto reply = payloadWith(4096, {{0, {2, 0xFF}},
                                        {32, {0x03, 0, 0x01, 0, 0xFF, 0xEE, 0, 0, 0x02, 0, 0x10}},
                                        {64, {0x2B, 0x0C}},
                                        {96, {0x09}}});
  const auto entry = [](const std::string& label, int n, const std::string& fields) {
    return object(label, "SC Entry " + std::to_string(n), "", fields);
  };
  const auto fields = [](const char* secondary, const char* primary, const char* state,
                         const char* reserved, const char* online, const char* function,
                         const char* queues) {
    return object("Byte 0-1", "Secondary Controller Identifier", secondary) +
           object("Byte 2-3", "Primary Controller Identifier", primary) +
           object("Byte 4", "Secondary Controller State", state,
                  property("Bit 7:1", "Reserved", reserved) +
                      property("Bit 0", "Online State", online)) +
           object("Byte 5-7", "Reserved", "") +
           object("Byte 8-9", "Virtual Function Number", function) +
           object("Byte 10-11", "Number of VQ Flexible Resources Assigned", queues) +
           object("Byte 12-13", "Number of VI Flexible Resources Assigned", "0") +
           object("Byte 14-31", "Reserved", "");
  };
  EXPECT_EQ(
      xmlOf(nvme::secondaryControllerList::toXmlObject(reply)),
      "<Object key=\"Secondary Controller List\" name=\"Secondary Controller List\">" +
          object("Byte 0", "Number of Identifiers", "2") + object("Byte 1-31", "Reserved", "") +
          entry("Byte 32-31", 0, fields("3", "1", "255", "0x7F", "1", "2", "10")) +
          entry("Byte 64-63", 1, fields("C2B", "0", "0", "0x0", "0", "0", "0")) + "</Object>");
  EXPECT_EQ(xmlOf(nvme::secondaryControllerList::toXmlObject(orlo::core::Payload(4095))),
            "<Object></Object>");
  // 255 entries are counted, but only 127 fit in the reply after its header.
  EXPECT_EQ(
      nvme::secondaryControllerList::toXmlObject(payloadWith(4096, {{0, {255}}}))->objects().size(),
      2u + 127u);
}

TEST(NamespaceGranularityList, DescriptorsAsCountedFrom288Bytes) {
  const auto reply = payloadWith(288, {{0, {0x03, 0, 0, 0, 2}},
                                       {32, {0, 0x10, 0, 0, 0, 0, 0, 0, 0, 0x20}},
                                       {48, {0x01}},
                                       {64, {0x09}}});
  EXPECT_EQ(
      xmlOf(nvme::namespaceGranularityList::toXmlObject(reply)),
      "<Object>" +
          property("Namespace Granularity Attributes", "Granularity Descriptor Mapping", "1") +
          property("Number of Descriptors", "", "2") +
          property("Namespace Size Granularity", "", "0x0000000000001000") +
          property("Namespace Capacity Granularity", "", "0x0000000000002000") +
          property("Namespace Size Granularity", "", "0x0000000000000001") +
          property("Namespace Capacity Granularity", "", "0x0000000000000000") + "</Object>");
  EXPECT_EQ(
      xmlOf(nvme::namespaceGranularityList::toXmlObject(payloadWith(288, {{64, {1}}}))),
      "<Object>" +
          property("Namespace Granularity Attributes", "Granularity Descriptor Mapping", "0") +
          property("Number of Descriptors", "", "0") + "</Object>");
  EXPECT_EQ(xmlOf(nvme::namespaceGranularityList::toXmlObject(orlo::core::Payload(287))),
            "<Object></Object>");
  // A count of 255 in the 288 bytes that the structure needs: the 16 descriptors that fit.
  EXPECT_EQ(nvme::namespaceGranularityList::toXmlObject(payloadWith(288, {{4, {255}}}))
                ->properties()
                .size(),
            2u + 32u);
}

}  // namespace
