#include <gtest/gtest.h>

#include "PayloadWith.h"
#include "orlo/features/identify/NVMe_NamespaceGranularityList.h"
#include "orlo/features/identify/NVMe_PrimaryControllerCapabilities.h"
#include "orlo/features/identify/NVMe_SecondaryControllerList.h"
#include "support/ExpectedText.h"

namespace {

using namespace identify_test;
using orlo::core::Payload;
using orlo::testing::expectedXml;
using orlo::testing::xmlText;
namespace nvme = orlo::features::identify::nvme;

TEST(PrimaryControllerCapabilities, FieldsInBareHex) {
  const auto reply = payloadWith(4096, {{0, {0x01, 0x0A, 0, 0, 0xFE, 0x77}},
                                        {32, {0x78, 0x56, 0x34, 0x12}},
                                        {40, {0xEF, 0xBE}},
                                        {64, {0, 0, 0, 0x80, 0x01}},
                                        {78, {0x10, 0, 0x55}}});
  EXPECT_EQ(xmlText(*nvme::primaryControllerCapabilities::toXmlObject(reply)),
            expectedXml("identify_structures/primary_controller_capabilities.xml"));
  EXPECT_EQ(xmlText(*nvme::primaryControllerCapabilities::toXmlObject(Payload(4095))),
            "<Object></Object>");
}

TEST(SecondaryControllerList, EntriesAsCountedWithTheirOwnLabels) {
  const auto reply = payloadWith(4096, {{0, {2, 0xFF}},
                                        {32, {0x03, 0, 0x01, 0, 0xFF, 0xEE, 0, 0, 0x02, 0, 0x10}},
                                        {64, {0x2B, 0x0C}},
                                        {96, {0x09}}});
  EXPECT_EQ(xmlText(*nvme::secondaryControllerList::toXmlObject(reply)),
            expectedXml("identify_structures/secondary_controller_list.xml"));
  EXPECT_EQ(xmlText(*nvme::secondaryControllerList::toXmlObject(Payload(4095))),
            "<Object></Object>");
  // 255 entries are counted, but only 127 fit in the reply after its header.
  const auto counted = payloadWith(4096, {{0, {255}}});
  EXPECT_EQ(nvme::secondaryControllerList::toXmlObject(counted)->objects().size(), 2u + 127u);
}

TEST(NamespaceGranularityList, DescriptorsAsCountedFrom288Bytes) {
  const auto reply = payloadWith(288, {{0, {0x03, 0, 0, 0, 2}},
                                       {32, {0, 0x10, 0, 0, 0, 0, 0, 0, 0, 0x20}},
                                       {48, {0x01}},
                                       {64, {0x09}}});
  EXPECT_EQ(xmlText(*nvme::namespaceGranularityList::toXmlObject(reply)),
            expectedXml("identify_structures/namespace_granularity_list.xml"));
  EXPECT_EQ(xmlText(*nvme::namespaceGranularityList::toXmlObject(payloadWith(288, {{64, {1}}}))),
            expectedXml("identify_structures/namespace_granularity_list_empty.xml"));
  EXPECT_EQ(xmlText(*nvme::namespaceGranularityList::toXmlObject(Payload(287))),
            "<Object></Object>");
  // A count of 255 in the 288 bytes that the structure needs: the 16 descriptors that fit.
  const auto counted = payloadWith(288, {{4, {255}}});
  EXPECT_EQ(nvme::namespaceGranularityList::toXmlObject(counted)->properties().size(), 2u + 32u);
}

}  // namespace
