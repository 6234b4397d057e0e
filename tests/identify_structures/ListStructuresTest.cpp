#include <gtest/gtest.h>

#include "PayloadWith.h"
#include "orlo/features/identify/NVMe_CommandSetVector.h"
#include "orlo/features/identify/NVMe_ControllerList.h"
#include "orlo/features/identify/NVMe_NamespaceIdentification.h"
#include "orlo/features/identify/NVMe_NamespaceList.h"
#include "orlo/features/identify/NVMe_UUIDList.h"
#include "support/ExpectedText.h"

namespace {

using namespace identify_test;
using orlo::core::Payload;
using orlo::testing::expectedXml;
using orlo::testing::xmlText;
namespace nvme = orlo::features::identify::nvme;

// A payload of `size` bytes whose every byte is `fill`.
Payload filled(uint32_t size, uint8_t fill) {
  return payloadWith(size, {{0, std::vector<uint8_t>(size, fill)}});
}

TEST(NamespaceList, IdentifiersUpToTheFirstZeroAtMost1024) {
  const auto list = payloadWith(4096, {{0, {5, 0, 0, 0, 4, 3, 2, 1}}, {12, {7}}});
  EXPECT_EQ(xmlText(*nvme::namespaceList::toXmlObject(list)),
            expectedXml("identify_structures/namespace_list.xml"));
  EXPECT_EQ(xmlText(*nvme::namespaceList::toXmlObject(Payload(4095))),
            emptyTree("I/O Command Set specific Allocated Namespace ID list"));
  EXPECT_EQ(nvme::namespaceList::toXmlObject(filled(8192, 1))->properties().size(), 1024u);
}

TEST(NamespaceIdentification, DescriptorsWalkedByLength) {
  const auto reply =
      payloadWith(4096, {{0, {2, 16, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}},
                         {20, {0, 4, 2, 1, 0xAA, 0xBB, 0xCC, 0xDD, 3, 16}},
                         {48, {1, 8}}});
  EXPECT_EQ(xmlText(*nvme::namespaceIdentification::toXmlObject(reply)),
            expectedXml("identify_structures/namespace_identification.xml"));
  EXPECT_EQ(xmlText(*nvme::namespaceIdentification::toXmlObject(Payload(100))),
            emptyTree("Namespace Identification Descriptors"));
  // Sixteen descriptors of 256 bytes fill the reply exactly.
  EXPECT_EQ(nvme::namespaceIdentification::toXmlObject(filled(4096, 252))->objects().size(), 16u);
}

TEST(ControllerList, IdentifiersRunToAZeroWordNotToTheCount) {
  const auto xmlFor = [](std::vector<uint8_t> words) {
    return xmlText(*nvme::controllerList::toXmlObject(payloadWith(4096, {{0, words}})));
  };
  EXPECT_EQ(xmlFor({1, 0, 0x10, 0, 0x20, 0, 2, 1}),
            expectedXml("identify_structures/controller_list.xml"));
  EXPECT_EQ(xmlFor({2, 0, 0, 0, 0, 0, 5}),
            R"(<Object><Property description="" name="Number of Controller Entries" value="2"/>)"
            R"(<Property description="" name="Controller ID" value="0"/></Object>)");
  EXPECT_EQ(xmlFor({0, 0, 5}),
            R"(<Object><Property description="" name="Number of Controller Entries" value="0"/>)"
            R"(</Object>)");
  EXPECT_EQ(xmlText(*nvme::controllerList::toXmlObject(Payload(4095))), "<Object></Object>");
  // With no zero word the walk ends at the buffer: the count and 2047 identifiers.
  EXPECT_EQ(nvme::controllerList::toXmlObject(filled(4096, 1))->properties().size(), 2048u);
}

TEST(UUIDList, EntriesUpToAZeroUuidAtMost127) {
  const auto reply =
      payloadWith(4096, {{31, {0x7F, 0x03}},
                         {48, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 0x05, 0xAB}},
                         {80, {0x01}},
                         {96, {0x02}}});
  EXPECT_EQ(xmlText(*nvme::UUIDList::toXmlObject(reply)),
            expectedXml("identify_structures/uuid_list.xml"));
  EXPECT_EQ(xmlText(*nvme::UUIDList::toXmlObject(Payload(4095))), "<Object></Object>");
  // A buffer longer than the reply still yields no 128th entry.
  EXPECT_EQ(nvme::UUIDList::toXmlObject(filled(8192, 1))->objects().size(), 1u + 127u);
}

TEST(CommandSetVector, FlatPropertiesUpToAZeroVectorAtMost512) {
  const auto reply = payloadWith(
      4096, {{0, {0x01}}, {8, {0x06, 0, 0, 0, 0, 0, 0, 0x01}}, {21, {0x01}}, {32, {0x07}}});
  EXPECT_EQ(xmlText(*nvme::commandSetVector::toXmlObject(reply)),
            expectedXml("identify_structures/command_set_vector.xml"));
  EXPECT_EQ(xmlText(*nvme::commandSetVector::toXmlObject(Payload(4095))), "<Object></Object>");
  EXPECT_EQ(nvme::commandSetVector::toXmlObject(filled(8192, 1))->properties().size(), 2048u);
}

}  // namespace
