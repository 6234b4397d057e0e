#include <gtest/gtest.h>

#include "IdentifyXml.h"
#include "orlo/features/identify/NVMe_CommandSetVector.h"
#include "orlo/features/identify/NVMe_ControllerList.h"
#include "orlo/features/identify/NVMe_NamespaceIdentification.h"
#include "orlo/features/identify/NVMe_NamespaceList.h"
#include "orlo/features/identify/NVMe_UUIDList.h"

namespace {

using namespace identify_test;
namespace nvme = orlo::features::identify::nvme;

// A payload of `size` bytes whose every byte is `fill`.
orlo::core::Payload filled(uint32_t size, uint8_t fill) {
  return payloadWith(size, {{0, std::vector<uint8_t>(size, fill)}});
}

TEST(NamespaceList, IdentifiersUpToTheFirstZeroAtMost1024) {
  const std::string root =
      "<Object key=\"I/O Command Set specific Allocated Namespace ID list\" name=\"I/O Command "
      "Set specific Allocated Namespace ID list\">";
  const auto list = payloadWith(4096, {{0, {5, 0, 0, 0, 4, 3, 2, 1}}, {12, {7}}});
  EXPECT_EQ(xmlOf(nvme::namespaceList::toXmlObject(list)),
            root + property("Namespace ID", "", "5") + property("Namespace ID", "", "16909060") +
                "</Object>");
  EXPECT_EQ(xmlOf(nvme::namespaceList::toXmlObject(orlo::core::Payload(4095))), root + "</Object>");
  EXPECT_EQ(nvme::namespaceList::toXmlObject(filled(8192, 1))->properties().size(), 1024u);
}

TEST(NamespaceIdentification, DescriptorsWalkedByLength) {
  const auto reply =
      payloadWith(4096, {{0, {2, 16, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}},
                         {20, {0, 4, 2, 1, 0xAA, 0xBB, 0xCC, 0xDD, 3, 16}},
                         {48, {1, 8}}});
  const auto descriptor = [](int n, const std::string& properties) {
    return object("Namespace Identification Descriptor " + std::to_string(n), "", "", properties);
  };
  EXPECT_EQ(
      xmlOf(nvme::namespaceIdentification::toXmlObject(reply)),
      "<Object key=\"Namespace Identification Descriptors\" name=\"Namespace Identification "
      "Descriptors\">" +
          descriptor(0, property("Byte 0", "Namespace Identifier Type",
                                 "Namespace Globally Unique Identifier") +
                            property("Byte 1", "Namespace Identifier Length", "16") +
                            property("Byte 2-3", "Reserved", "0") +
                            property("Byte 4-19", "Namespace Identifier",
                                     "0x0F0E0D0C0B0A09080706050403020100")) +
          descriptor(1, property("Byte 0", "Namespace Identifier Type", "Reserved") +
                            property("Byte 1", "Namespace Identifier Length", "4") +
                            property("Byte 2-3", "Reserved", "258") +
                            property("Byte 4-7", "Namespace Identifier", "0xDDCCBBAA")) +
          descriptor(2, property("Byte 0", "Namespace Identifier Type", "Namespace UUID") +
                            property("Byte 1", "Namespace Identifier Length", "16") +
                            property("Byte 2-3", "Reserved", "0") +
                            property("Byte 4-19", "Namespace Identifier", "0x0")) +
          descriptor(3, property("Byte 0", "Namespace Identifier Type",
                                 "IEEE Extended Unique Identifier") +
                            property("Byte 1", "Namespace Identifier Length", "8") +
                            property("Byte 2-3", "Reserved", "0") +
                            property("Byte 4-11", "Namespace Identifier", "0x0000000000000000")) +
          "</Object>");
  EXPECT_EQ(xmlOf(nvme::namespaceIdentification::toXmlObject(orlo::core::Payload(100))),
            "<Object key=\"Namespace Identification Descriptors\" name=\"Namespace "
            "Identification Descriptors\"></Object>");
  // Sixteen descriptors of 256 bytes fill the reply exactly.
  EXPECT_EQ(nvme::namespaceIdentification::toXmlObject(filled(4096, 252))->objects().size(), 16u);
}

TEST(ControllerList, IdentifiersRunToAZeroWordNotToTheCount) {
  const auto xmlFor = [](std::vector<uint8_t> words) {
    return xmlOf(nvme::controllerList::toXmlObject(payloadWith(4096, {{0, words}})));
  };
  const std::string count = "<Object>" + property("Number of Controller Entries", "", "1");
  EXPECT_EQ(xmlFor({1, 0, 0x10, 0, 0x20, 0, 2, 1}),
            count + property("Controller ID", "", "16") + property("Controller ID", "", "32") +
                property("Controller ID", "", "258") + "</Object>");
  EXPECT_EQ(xmlFor({2, 0, 0, 0, 0, 0, 5}), "<Object>" +
                                               property("Number of Controller Entries", "", "2") +
                                               property("Controller ID", "", "0") + "</Object>");
  EXPECT_EQ(xmlFor({0, 0, 5}),
            "<Object>" + property("Number of Controller Entries", "", "0") + "</Object>");
  EXPECT_EQ(xmlOf(nvme::controllerList::toXmlObject(orlo::core::Payload(4095))),
            "<Object></Object>");
  // With no zero word the walk ends at the buffer: the count and 2047 identifiers.
  EXPECT_EQ(nvme::controllerList::toXmlObject(filled(4096, 1))->properties().size(), 2048u);
}

TEST(UUIDList, EntriesUpToAZeroUuidAtMost127) {
  const auto reply =
      payloadWith(4096, {{31, {0x7F, 0x03}},
                         {48, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 0x05, 0xAB}},
                         {80, {0x01}},
                         {96, {0x02}}});
  EXPECT_EQ(
      xmlOf(nvme::UUIDList::toXmlObject(reply)),
      "<Object key=\"Universally Unique Identifier (UUID) List\" name=\"Universally Unique "
      "Identifier (UUID) List\">" +
          object("Byte 0-31", "Reserved", "0x" + std::string(62, '0') + "7F") +
          "<Object name=\"UUID List Entry 1\">" +
          property("Byte 0", "Identifier Association", "Reserved") +
          property("Byte 1-15", "Reserved", "0x0") +
          property("Byte 16-31", "UUID", "0x0F0E0D0C0B0A09080706050403020100") +
          "</Object><Object name=\"UUID List Entry 2\">" +
          property("Byte 0", "Identifier Association",
                   "The UUID is associated with the vendor reported in the PCI Vendor ID field "
                   "of the Identify Controller data structure") +
          property("Byte 1-15", "Reserved", "0xAB" + std::string(28, '0')) +
          property("Byte 16-31", "UUID", "0x" + std::string(30, '0') + "01") +
          "</Object></Object>");
  EXPECT_EQ(xmlOf(nvme::UUIDList::toXmlObject(orlo::core::Payload(4095))), "<Object></Object>");
  // A buffer longer than the reply still yields no 128th entry.
  EXPECT_EQ(nvme::UUIDList::toXmlObject(filled(8192, 1))->objects().size(), 128u);
}

TEST(CommandSetVector, FlatPropertiesUpToAZeroVectorAtMost512) {
  const auto reply = payloadWith(
      4096, {{0, {0x01}}, {8, {0x06, 0, 0, 0, 0, 0, 0, 0x01}}, {21, {0x01}}, {32, {0x07}}});
  const auto vector = [](int n, const char* low, const char* b0, const char* b1, const char* b2) {
    return property("Command Set Vector " + std::to_string(n), "", low) +
           property("Bit 0", "NVM Command Set", b0) +
           property("Bit 1", "Key Value Command Set", b1) +
           property("Bit 2", "Zoned Namespace Command Set", b2);
  };
  EXPECT_EQ(xmlOf(nvme::commandSetVector::toXmlObject(reply)),
            "<Object>" + vector(0, "0x01", "1", "0", "0") + vector(1, "0x06", "0", "1", "1") +
                vector(2, "0x00", "0", "0", "0") + "</Object>");
  EXPECT_EQ(xmlOf(nvme::commandSetVector::toXmlObject(orlo::core::Payload(4095))),
            "<Object></Object>");
  EXPECT_EQ(nvme::commandSetVector::toXmlObject(filled(8192, 1))->properties().size(), 2048u);
}

}  // namespace
