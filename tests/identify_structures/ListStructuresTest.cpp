#include <gtest/gtest.h>

#include "IdentifyXml.h"
#include "orlo/features/identify/NVMe_CommandSetVector.h"
#include "orlo/features/identify/NVMe_ControllerList.h"
#include "orlo/features/identify/NVMe_NamespaceIdentification.h"
#include "orlo/features/identify/NVMe_NamespaceList.h"
#include "orlo/features/identify/NVMe_UUIDList.h"

namespace {

using namespace identify_test;
using orlo::core::Payload;
namespace nvme = orlo::features::identify::nvme;

// A payload of `size` bytes whose every byte is `fill`.
Payload filled(uint32_t size, uint8_t fill) {
  return payloadWith(size, {{0, std::vector<uint8_t>(size, fill)}});
}

TEST(NamespaceList, IdentifiersUpToTheFirstZeroAtMost1024) {
  const std::string root = named("I/O Command Set specific Allocated Namespace ID list");
  const auto list = payloadWith(4096, {{0, {5, 0, 0, 0, 4, 3, 2, 1}}, {12, {7}}});
  EXPECT_EQ(xmlOf(nvme::namespaceList::toXmlObject(list)),
            treeXml(root, "P Namespace ID||5\nP Namespace ID||16909060"));
  EXPECT_EQ(xmlOf(nvme::namespaceList::toXmlObject(Payload(4095))), treeXml(root, ""));
  EXPECT_EQ(nvme::namespaceList::toXmlObject(filled(8192, 1))->properties().size(), 1024u);
}

TEST(NamespaceIdentification, DescriptorsWalkedByLength) {
  const auto reply =
      payloadWith(4096, {{0, {2, 16, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}},
                         {20, {0, 4, 2, 1, 0xAA, 0xBB, 0xCC, 0xDD, 3, 16}},
                         {48, {1, 8}}});
  const std::string root = named("Namespace Identification Descriptors");
  EXPECT_EQ(xmlOf(nvme::namespaceIdentification::toXmlObject(reply)),
            treeXml(root, outline("namespace_identification.txt")));
  EXPECT_EQ(xmlOf(nvme::namespaceIdentification::toXmlObject(Payload(100))), treeXml(root, ""));
  // Sixteen descriptors of 256 bytes fill the reply exactly.
  EXPECT_EQ(nvme::namespaceIdentification::toXmlObject(filled(4096, 252))->objects().size(), 16u);
}

TEST(ControllerList, IdentifiersRunToAZeroWordNotToTheCount) {
  const auto xmlFor = [](std::vector<uint8_t> words) {
    return xmlOf(nvme::controllerList::toXmlObject(payloadWith(4096, {{0, words}})));
  };
  EXPECT_EQ(xmlFor({1, 0, 0x10, 0, 0x20, 0, 2, 1}), treeXml("", outline("controller_list.txt")));
  EXPECT_EQ(xmlFor({2, 0, 0, 0, 0, 0, 5}),
            treeXml("", "P Number of Controller Entries||2\nP Controller ID||0"));
  EXPECT_EQ(xmlFor({0, 0, 5}), treeXml("", "P Number of Controller Entries||0"));
  EXPECT_EQ(xmlOf(nvme::controllerList::toXmlObject(Payload(4095))), "<Object></Object>");
  // With no zero word the walk ends at the buffer: the count and 2047 identifiers.
  EXPECT_EQ(nvme::controllerList::toXmlObject(filled(4096, 1))->properties().size(), 2048u);
}

TEST(UUIDList, EntriesUpToAZeroUuidAtMost127) {
  const auto reply =
      payloadWith(4096, {{31, {0x7F, 0x03}},
                         {48, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 0x05, 0xAB}},
                         {80, {0x01}},
                         {96, {0x02}}});
  EXPECT_EQ(xmlOf(nvme::UUIDList::toXmlObject(reply)),
            treeXml(named("Universally Unique Identifier (UUID) List"), outline("uuid_list.txt")));
  EXPECT_EQ(xmlOf(nvme::UUIDList::toXmlObject(Payload(4095))), "<Object></Object>");
  // A buffer longer than the reply still yields no 128th entry.
  EXPECT_EQ(nvme::UUIDList::toXmlObject(filled(8192, 1))->objects().size(), 1u + 127u);
}

TEST(CommandSetVector, FlatPropertiesUpToAZeroVectorAtMost512) {
  const auto reply = payloadWith(
      4096, {{0, {0x01}}, {8, {0x06, 0, 0, 0, 0, 0, 0, 0x01}}, {21, {0x01}}, {32, {0x07}}});
  EXPECT_EQ(xmlOf(nvme::commandSetVector::toXmlObject(reply)),
            treeXml("", outline("command_set_vector.txt")));
  EXPECT_EQ(xmlOf(nvme::commandSetVector::toXmlObject(Payload(4095))), "<Object></Object>");
  EXPECT_EQ(nvme::commandSetVector::toXmlObject(filled(8192, 1))->properties().size(), 2048u);
}

}  // namespace
