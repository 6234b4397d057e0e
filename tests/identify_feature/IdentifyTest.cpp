#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <set>
#include <sstream>

#include "orlo/commands/nvme/Layout.h"
#include "orlo/core/LoggerSetup.h"
#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/identify/ATAIdentify.h"
#include "orlo/features/identify/Identify.h"
#include "orlo/features/identify/NVMeIdentify.h"
#include "support/FakeDevice.h"

using namespace orlo::core;
namespace identify = orlo::features::identify;
using NVMeIdentify = identify::nvme::Identify;
using orlo::test::FakeDevice;

namespace {

constexpr int64_t kNone = -1;

// An NVMe drive that answers every Identify with 4096 zero bytes.
std::shared_ptr<FakeDevice> drive(bool version12, bool management, uint32_t namespaceId = 0,
                                  bool msft = false) {
  auto device = std::make_shared<FakeDevice>();
  writeUInt8(device->attributes, properties::nvme1Point2OrGreater(), version12);
  writeUInt8(device->attributes, properties::namespaceManagementSupported(), management);
  writeUInt8(device->attributes, properties::isCommandPathNVMeMSFT(), msft);
  writeUInt32(device->attributes, properties::namespaceId(), namespaceId);
  device->answer("Identify", {Status::success(), Payload(4096), nullptr});
  return device;
}

AttributeCollection request(int64_t cns, int64_t namespaceId = kNone) {
  AttributeCollection attributes;
  if (cns != kNone) writeUInt8(attributes, properties::controllerNamespaceStructure(), cns);
  if (namespaceId != kNone) writeUInt32(attributes, properties::namespaceId(), namespaceId);
  return attributes;
}

}  // namespace

TEST(NVMeIdentify, FillsInTheNamespaceAndRewritesOneNamespaceToCns17) {
  // clang-format off
  struct Case { uint32_t driveNamespace; bool msft; int64_t cns, nsid; uint32_t sentCns, sent; };
  const Case cases[] = {{0, false, kNone, kNone, 0, 0xFFFFFFFF}, {1, false, kNone, kNone, 17, 1},
                        {1, true, kNone, kNone, 0, 1},           {5, false, 2, kNone, 2, 0},
                        {5, false, 16, kNone, 16, 0},            {5, false, 2, 7, 2, 7}};
  // clang-format on
  for (const Case& c : cases) {
    auto device = drive(true, true, c.driveNamespace, c.msft);
    NVMeIdentify feature(device, request(c.cns, c.nsid));
    ASSERT_EQ(feature.identify(), Status::success());
    const auto& entry = device->sentNvme(0).submissionEntry;
    EXPECT_EQ(entry.dword(10), c.sentCns) << c.driveNamespace << " " << c.msft << " " << c.cns;
    EXPECT_EQ(entry.dword(1), c.sent) << c.driveNamespace << " " << c.msft << " " << c.cns;
    EXPECT_EQ(feature.getXml()->getAttribute("name") == "Identify Namespace", c.cns == kNone);
  }
}

TEST(NVMeIdentify, CanRunGatesOnProtocolVersionAndNamespaceManagement) {
  // clang-format off
  struct Case { int64_t cns; bool version12, management, nvme, runs; };
  const Case cases[] = {{3, true, true, true, false},   {20, true, true, true, false},
                        {21, true, true, true, false},  {2, true, false, true, true},
                        {2, false, true, true, false},  {17, false, false, true, true},
                        {16, true, false, true, false}, {18, true, false, true, false},
                        {19, true, true, true, true},   {4, false, false, true, true},
                        {1, true, true, false, false}};
  // clang-format on
  for (const Case& c : cases) {
    auto device = drive(c.version12, c.management);
    if (!c.nvme) device->protocols = {"ATA"};
    NVMeIdentify feature(device, request(c.cns));
    EXPECT_EQ(feature.identify().code(), c.runs ? 0 : 35) << c.cns;
    EXPECT_EQ(device->sent.size(), c.runs ? 1u : 0u) << c.cns;
  }
}

TEST(NVMeIdentify, SendsAll32NamespaceBitsLogsTheLowByteAndKeepsTheReplyOfAFailure) {
  const std::string log = testing::TempDir() + "orlo_nvme_identify.log";
  std::remove(log.c_str());
  logging::initializeLogger(true, log);
  auto device = std::make_shared<FakeDevice>();
  const Payload reply(4096);
  device->answer("Identify", {Status::retrieveDataFailed(), reply, nullptr});
  AttributeCollection attributes = request(1, 256);
  writeUInt8(attributes, Attribute("CSI", "Command Set Identifier", "uint8"), 2);
  NVMeIdentify feature(device, attributes);

  EXPECT_EQ(feature.identify(), Status::retrieveDataFailed());
  logging::initializeLogger(false, "");
  EXPECT_EQ(feature.payload.data(), reply.data());
  EXPECT_EQ(device->sentNvme(0).submissionEntry.dword(1), 256u);
  EXPECT_EQ(device->sentNvme(0).submissionEntry.dword(11), 0x02000000u);
  std::stringstream text;
  text << std::ifstream(log).rdbuf();
  EXPECT_NE(text.str().find(": NSID = 0\n"), std::string::npos);
  EXPECT_NE(text.str().find(": CSI  = 2\n"), std::string::npos);
}

TEST(NVMeIdentify, GetXmlPicksTheDecoderAndNamesTheLists) {
  // clang-format off
  const std::pair<int64_t, std::string> cases[] = {
      {17, "Identify Namespace"},     {1, "Identify Controller"},
      {2, "Attached Namespace IDs"},  {16, "Allocated Namespace IDs"},
      {18, "Attached Controllers"},   {19, "All Controllers"},
      {26, "I/O Command Set specific Allocated Namespace ID list"}, {4, ""}};
  // clang-format on
  for (const auto& [cns, expected] : cases) {
    NVMeIdentify feature(drive(false, false), request(cns));
    feature.payload = Payload(4096);
    const auto root = feature.getXml();
    EXPECT_EQ(root->getAttribute("name"), expected) << cns;
    EXPECT_EQ(root->getAttribute("key"), root->getAttribute("name")) << cns;
    EXPECT_EQ(root->isEmpty(), cns == 4) << cns;
  }
}

TEST(IdentifyFrontEnd, ChoosesTheProtocolObjectOnceAskingATAFirst) {
  const std::set<std::string> ata{"ATA"}, nvme{"NVME"}, both{"ATA", "NVME"}, none{};
  for (const auto& protocols : {ata, nvme, both, none}) {
    identify::Identify feature(std::make_shared<FakeDevice>(protocols), AttributeCollection());
    const auto* object = feature.identifyObject.get();
    EXPECT_EQ(dynamic_cast<const identify::ata::Identify*>(object) != nullptr,
              protocols.count("ATA") > 0);
    EXPECT_EQ(dynamic_cast<const NVMeIdentify*>(object) != nullptr, protocols == nvme);
    EXPECT_EQ(feature.status.code(), protocols.empty() ? 35 : 0);
  }
  identify::Identify neither(std::make_shared<FakeDevice>(none), AttributeCollection());
  EXPECT_EQ(neither.canRun().code(), 35);
  EXPECT_EQ(neither.identify().code(), 35);
  EXPECT_TRUE(neither.getXml()->isEmpty());
}

TEST(IdentifyFrontEnd, IdentifiesThroughTheProtocolObjectOnlyWhenItCanRun) {
  auto device = std::make_shared<FakeDevice>();
  device->answer("Identify", {Status::success(), Payload(4096), nullptr});
  identify::Identify feature(device, AttributeCollection());
  EXPECT_EQ(feature.identify(), Status::success());
  EXPECT_EQ(device->sent.size(), 1u);
  EXPECT_EQ(feature.payload.size(), 0u);
  EXPECT_EQ(feature.identifyObject->payload.size(), 4096u);
}

// Capture records the structures of the one list of decoded CNS values: each must
// have its decoder, and a value outside the list none. Every byte 1, so that a list
// holds an entry.
TEST(NVMeIdentify, DecodesExactlyTheStructuresTheLayoutNames) {
  namespace layout = orlo::commands::nvme::layout;
  std::set<int> decoded;
  for (const auto& structure : layout::kDecodedStructures) decoded.insert(structure.cns);
  const std::vector<uint8_t> ones(4096, 1);
  for (int cns = 0; cns < 256; ++cns) {
    NVMeIdentify feature(drive(false, false), request(cns));
    feature.payload = Payload(ones.data(), ones.size());
    EXPECT_EQ(!feature.getXml()->isEmpty(), decoded.count(cns) == 1) << cns;
  }
}
