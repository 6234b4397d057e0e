#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <tuple>

#include "orlo/core/ProductNames.h"
#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/feature/UUID/RegisteredGUIDs.h"
#include "orlo/features/nvme_get_log/LogFactories.h"
#include "orlo/features/nvme_get_log/NVMeGetLogMarketingDescription.h"
#include "orlo/features/nvme_get_log/NVMeGetLog_CommandsEffects.h"
#include "orlo/features/nvme_get_log/RetainAsynchronousEventProperty.h"
#include "support/ExpectedText.h"
#include "support/FakeDevice.h"
#include "support/ScratchDirectory.h"

using namespace orlo;
using namespace orlo::features::nvme_get_log;
namespace properties = core::properties;
namespace uuid = features::uuid;
namespace products = core::products;

namespace {

// A drive whose UUID list (ZeroGUID, VendorGUID at 3, LogGUID at 5) is already known under
// its own serial number, so that no Identify is needed.
std::shared_ptr<test::FakeDevice> drive(bool veldra = true, bool uuidSupported = false) {
  static int drives = 0;
  auto device = std::make_shared<test::FakeDevice>();
  const std::string serial = "GETLOG-" + std::to_string(++drives);
  core::writeString(device->attributes, properties::serialNumber(), serial);
  core::writeUInt8(device->attributes, properties::veldra(), veldra);
  core::writeUInt8(device->attributes, properties::uuidSupported(), uuidSupported);
  core::writeUInt32(device->attributes, properties::namespaceId(), 7);
  uuid::registeredGUIDs[serial] = {{uuid::ZeroGUID, 0}, {uuid::VendorGUID, 3}, {uuid::LogGUID, 5}};
  return device;
}

void set(const std::shared_ptr<test::FakeDevice>& device, core::Attribute (*flag)(), bool on) {
  core::writeUInt8(device->attributes, flag(), on);
}

std::string xmlOf(NVMeGetLog& log, const core::Payload& payload) {
  log.payload = payload;
  return orlo::testing::xmlText(*log.getXml());
}

struct DriveReason : core::ProtocolResult {
  std::unique_ptr<core::ProtocolResult> clone() const override {
    return std::make_unique<DriveReason>(*this);
  }
  void fillStatus(core::Status& status) const override { status = core::Status(10, 77, "x"); }
};

// Admin opcode 6 and I/O opcode 255 with fields that differ from their neighbours and bits
// 31:26 set, and Admin opcode 16 with every bit but bit 0.
core::Payload craftedEffectsLog() {
  core::Payload log(4096);
  for (auto [offset, entry] :
       {std::pair{4 * 6, 0xFD5D0015u}, {4 * 16, 0xFFFFFFFEu}, {1024 + 4 * 255, 0xFD5D0015u}}) {
    for (int i = 0; i < 4; ++i) log[offset + i] = static_cast<uint8_t>(entry >> (8 * i));
  }
  return log;
}

}  // namespace

TEST(NVMeGetLog, CanRunChecksInOrder) {
  struct Case {
    bool veldra, nvme, uuidSupported;
    uint8_t logId;
    std::optional<uint8_t> callerIndex;
    bool file, dropNumDWORDs;
    int32_t code;
    std::optional<uint8_t> indexAfter;
  };
  for (const Case& c : std::initializer_list<Case>{
           {false, false, true, 2, {}, false, false, 1, 0},      // index written before refusal
           {true, false, false, 2, {}, false, false, 35, {}},    // no NVMe
           {true, true, false, 2, 3, false, false, 282, 3},      // index without a UUID list
           {true, true, true, 2, 255, false, true, 283, 255},    // 283 before 284 and 274
           {true, true, true, 200, {}, false, false, 283, 255},  // vendor log, no GUID
           {true, true, true, 200, 3, false, false, 284, 3},     // index of no accepted GUID
           {true, true, true, 2, 5, false, false, 0, 5},         // LogGUID's index
           {true, true, true, 2, 255, true, false, 0, 255},      // File skips the index checks
           {true, true, false, 2, {}, false, false, 0, {}},      // no UUID list, no index
           {true, true, true, 2, 5, false, true, 274, 5}}) {     // a caller removed NumDWORDs
    auto device = drive(c.veldra, c.uuidSupported);
    if (!c.nvme) device->protocols.clear();
    core::AttributeCollection attributes;
    if (c.callerIndex) core::writeUInt8(attributes, properties::uuidIndex(), *c.callerIndex);
    if (c.file) core::writeString(attributes, properties::file(), "log.bin");
    NVMeGetLog log(device, c.logId, 9, "Test", attributes);
    if (c.dropNumDWORDs) {
      core::AttributeCollection kept;
      for (const auto& [name, attribute] : log.attributes) {
        if (name != "NumDWORDs") kept.add(attribute);
      }
      log.attributes = kept;
    }
    const core::Status status = log.canRun();
    EXPECT_EQ(status.code(), c.code) << "case with code " << c.code;
    EXPECT_EQ(log.status, status);
    EXPECT_EQ(core::hasAttribute(log.attributes, properties::uuidIndex()),
              c.indexAfter.has_value());
    EXPECT_EQ(log.getUUIDIndex(), c.indexAfter.value_or(0));
  }
}

TEST(NVMeGetLog, CommandCarriesEveryFieldInItsBits) {
  for (bool retain : {false, true}) {
    auto device = drive(true, true);
    device->answer("GetLogPage", {});
    core::AttributeCollection attributes;
    core::writeUInt8(attributes, properties::namespaceSpecific(), 1);
    core::writeUInt8(attributes, properties::logSpecificField(), 0xFF);
    core::writeUInt8(attributes, properties::uuidIndex(), 255);
    core::writeString(attributes, properties::file(), "log.bin");
    core::writeUInt8(attributes, retainAsynchronousEventProperty(), retain);
    core::Attribute lsi = properties::logSpecificId();
    lsi.setUInt16(0xBEEF);
    core::Attribute offset = properties::logPageOffset();
    ASSERT_TRUE(core::succeeded(offset.setValue("1234605616436508552")));  // 0x1122334455667788
    attributes.add(lsi);
    attributes.add(offset);
    NVMeGetLog log(device, 0x42, 0x0001FFFF, "Test", attributes);
    ASSERT_TRUE(core::succeeded(log.sendCommand()));
    const auto& command = device->sentNvme(0);
    const auto& e = command.submissionEntry;
    EXPECT_TRUE(e.bytes[0] == 2 && command.admin && command.dataIn);
    EXPECT_TRUE(device->sent[0].withDataOut && device->sent[0].dataOut.size() == 0);
    EXPECT_EQ(
        (std::vector{e.dword(1), e.dword(10), e.dword(11), e.dword(12), e.dword(13), e.dword(14)}),
        (std::vector{0xFFFFFFFFu, retain ? 0xFFFFFF42u : 0xFFFF7F42u, 0xBEEF0001u, 0x55667788u,
                     0x11223344u, 0x7Fu}));
    EXPECT_EQ(command.transferBytes, 0x80000u);
  }
}

TEST(NVMeGetLog, PayloadOnlyFromASuccessfulSend) {
  auto device = drive();
  NVMeGetLog log(device, 2, 0, "Test", {});
  EXPECT_TRUE(log.getXml()->attributes().empty());
  const uint8_t bytes[] = {0xAB, 0x01};
  device->unanswered = {core::Status::success(), core::Payload(bytes, 2), nullptr};
  ASSERT_TRUE(core::succeeded(log.sendCommand()));
  device->unanswered = {core::Status::nvmeCommandProblem(), core::Payload(8), nullptr};
  EXPECT_EQ(log.sendCommand(), core::Status::nvmeCommandProblem());
  device->unanswered.protocolResult = std::make_shared<DriveReason>();
  EXPECT_EQ(log.sendCommand(), core::Status(10, 77, "x"));
  EXPECT_EQ(log.status, core::Status(10, 77, "x"));
  set(device, properties::veldra, false);
  EXPECT_EQ(log.sendCommand().code(), 1);
  EXPECT_EQ(device->sent.size(), 3u);
  const auto tree = log.getXml();
  EXPECT_EQ(tree->getAttribute("key"), "NVMeGetLog");
  EXPECT_EQ(tree->properties().at(0)->getAttribute("value"), "AB01");
}

TEST(NVMeGetLog, WriteBinaryToFileTruncatesAndReportsAnEmptyPayload) {
  const orlo::testing::ScratchDirectory folder;
  const std::string path = folder / "getlog.bin";
  const auto contents = [&] { return orlo::testing::readFile(path); };
  orlo::testing::writeFile(path, "a longer earlier content");
  auto device = drive();
  NVMeGetLog log(device, 2, 0, "Test", {});
  EXPECT_EQ(log.writeBinaryToFile(path), core::Status(10, 168, "Failed to write to file."));
  EXPECT_EQ(contents(), "");
  device->unanswered = {core::Status::success(), core::Payload("x\0y", 3), nullptr};
  ASSERT_TRUE(core::succeeded(log.sendCommand()));
  EXPECT_TRUE(core::succeeded(log.writeBinaryToFile(path)));
  EXPECT_EQ(contents(), std::string("x\0y", 3));
}

TEST(NVMeGetLog, CommandsEffectsFromTheFactory) {
  auto device = drive();
  set(device, properties::nvme1Point4OrGreater, true);
  set(device, properties::supportCommandEffectsLogEnhancements, true);
  const auto log = makeLog("commandEffectsLog", device, {});
  ASSERT_TRUE(dynamic_cast<NVMeGetLog_CommandsEffects*>(log.get()));
  EXPECT_EQ(log->getLogId(), 5);
  EXPECT_EQ(core::readUInt32(log->attributes, properties::numDWORDs()), 1023u);
  EXPECT_EQ(xmlOf(*log, craftedEffectsLog()),
            orlo::testing::expectedXml("nvme_get_log/commands_effects.xml"));
  // Each version attribute gates its own rows.
  for (auto [nvme1Point4, enhancements, rows, last] :
       {std::tuple{false, false, 6u, "Command Submission and Execution"},
        {true, false, 7u, "UUID Selection Supported"},
        {false, true, 12u, "NVM Subsystem Scope"}}) {
    set(device, properties::nvme1Point4OrGreater, nvme1Point4);
    set(device, properties::supportCommandEffectsLogEnhancements, enhancements);
    const auto tree = log->getXml();
    const auto& child = static_cast<core::xml::XmlObject&>(*tree->objects().at(0));
    ASSERT_EQ(child.properties().size(), rows);
    EXPECT_EQ(child.properties().back()->getAttribute("name"), last);
  }
  for (uint32_t size : {0, 4095}) {
    EXPECT_EQ(xmlOf(*log, core::Payload(size)),
              orlo::testing::expectedXml("nvme_get_log/commands_effects_short.xml"))
        << size;
  }
  EXPECT_EQ(
      xmlOf(*log, core::Payload(4096)),
      R"x(<Object key="Commands Effects Log (Log ID = 5)" name="Commands Effects Log (Log ID = 5)">)x"
      R"x(<Property name="Commands Supported" value="0"/></Object>)x");
}

TEST(NVMeGetLog, MarketingDescriptionFromTheFactory) {
  const auto log = makeLog("MARKETINGDESCRIPTION", drive(), {});
  ASSERT_TRUE(dynamic_cast<NVMeGetLogMarketingDescription*>(log.get()));
  EXPECT_EQ(log->getLogId(), 221);
  EXPECT_EQ(core::readUInt32(log->attributes, properties::numDWORDs()), 127u);
  EXPECT_EQ(makeLog("TemperatureStatistics", drive(), {}), nullptr);
  const std::string root =
      R"x(<Object key="Marketing Description Log" name="Marketing Description Log">)x";
  const std::string property = R"x(<Property name="Marketing String" value=")x";
  EXPECT_EQ(xmlOf(*log, core::Payload("ABC\0DEF", 8)), root + property + "ABC\"/></Object>");
  EXPECT_EQ(xmlOf(*log, core::Payload("\0BC", 4)), root + property + "\"/></Object>");
  EXPECT_EQ(xmlOf(*log, core::Payload("ABCD", 4)), root + property + "ABCD\"/></Object>");
  EXPECT_EQ(xmlOf(*log, core::Payload("ABC", 3)), root + "</Object>");

  // ZeroGUID comes last, and only on the drives of the rule.
  const std::vector<uuid::GUID16> vendor = {uuid::VendorGUID, uuid::VendorGUIDReversed};
  EXPECT_EQ(log->uuidManager->supportedUUIDs, vendor);
  auto device = drive();
  set(device, properties::veldraNVMe, true);
  set(device, properties::ocpSupported, true);
  core::writeString(device->attributes, properties::product(), "X " + products::ProductFamilyTwo);
  core::writeString(device->attributes, properties::oem(), "Oracle");
  EXPECT_EQ(NVMeGetLogMarketingDescription(device, {}).uuidManager->supportedUUIDs.back(),
            uuid::ZeroGUID);
  core::writeString(device->attributes, properties::oem(), "oracle");
  EXPECT_EQ(NVMeGetLogMarketingDescription(device, {}).uuidManager->supportedUUIDs, vendor);
}
