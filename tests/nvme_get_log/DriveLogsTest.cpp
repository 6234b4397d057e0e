#include <gtest/gtest.h>

#include <string>

#include "identify_structures/PayloadWith.h"
#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/health/NVMeHealthFacts.h"
#include "orlo/features/nvme_get_log/DeviceSelfTestLog.h"
#include "orlo/features/nvme_get_log/ErrorInformationLog.h"
#include "orlo/features/nvme_get_log/FirmwareSlotLog.h"
#include "orlo/features/nvme_get_log/LogFactories.h"
#include "orlo/features/nvme_get_log/SmartHealthLog.h"
#include "support/ExpectedText.h"
#include "support/FakeDevice.h"

using namespace orlo;
using identify_test::payloadWith;
using orlo::testing::expectedXml;
using orlo::testing::xmlText;
namespace getLog = orlo::features::nvme_get_log;
namespace properties = core::properties;

namespace {

// `size` bytes, byte i holding (37 i + 21) mod 256: each differs from its neighbours, so a
// field read one byte off shows another value.
core::Payload stepped(uint32_t size) {
  core::Payload payload(size);
  for (uint32_t i = 0; i < size; ++i) payload[i] = static_cast<uint8_t>(37 * i + 21);
  return payload;
}

const std::string shortLog(const std::string& name) {
  return "<Object key=\"" + name + "\" name=\"" + name + "\">" +
         xmlText(*core::Status::retrieveDataFailed().toXml()) + "</Object>";
}

}  // namespace

TEST(DriveLogs, SmartHealthEveryFieldWithItsUnit) {
  EXPECT_EQ(xmlText(*getLog::smartHealth::decode(stepped(512))),
            expectedXml("nvme_get_log/smart_health.xml"));
  EXPECT_EQ(xmlText(*getLog::smartHealth::decode(stepped(511))),
            shortLog("SMART / Health Information Log (Log ID = 2)"));
}

TEST(DriveLogs, ErrorInformationEntriesInUseToTheEnd) {
  // Entry 1 stepped, entry 2 unused, entry 3 with only its count; 191 bytes end the walk
  // before the third.
  core::Payload log = stepped(192);
  for (uint32_t i = 64; i < 192; ++i) log[i] = 0;
  log[128] = 1;
  EXPECT_EQ(xmlText(*getLog::errorInformation::decode(log)),
            expectedXml("nvme_get_log/error_information.xml"));
  const auto cut = getLog::errorInformation::decode(core::Payload(log.data(), 191));
  EXPECT_EQ(cut->objects().size(), 1u);
  EXPECT_EQ(cut->properties().at(0)->getAttribute("value"), "1");
  EXPECT_EQ(xmlText(*getLog::errorInformation::decode(stepped(63))),
            shortLog("Error Information Log (Log ID = 1)"));
}

TEST(DriveLogs, FirmwareSlotsAndDeviceSelfTests) {
  const auto slots = payloadWith(512, {{0, {0xB2, 0x01, 0x02}},
                                       {8, {'T', '2', 'F', '1', '0', '1', '1', '0'}},
                                       {24, {'B', ' ', 'C', 0x07}},
                                       {63, {'Z', 0x64}},
                                       {511, {0x80}}});
  EXPECT_EQ(xmlText(*getLog::firmwareSlot::decode(slots)),
            expectedXml("nvme_get_log/firmware_slot.xml"));
  EXPECT_EQ(xmlText(*getLog::firmwareSlot::decode(core::Payload(511))),
            shortLog("Firmware Slot Information Log (Log ID = 3)"));

  // A vendor test running with bits 7:4 set, 50 % done; result 1 stepped, result 2 unused,
  // result 20 an extended test aborted by a sanitize, the others unused.
  core::Payload tests = stepped(564);
  tests[0] = 0x3E;
  tests[1] = 0xB2;
  tests[4] = 0x27;
  for (uint32_t result = 1; result < 20; ++result) {
    for (uint32_t i = 0; i < 28; ++i) tests[4 + 28 * result + i] = 0;
    tests[4 + 28 * result] = result == 19 ? 0x29 : 0x0F;
  }
  EXPECT_EQ(xmlText(*getLog::deviceSelfTest::decode(tests)),
            expectedXml("nvme_get_log/device_self_test.xml"));
  EXPECT_EQ(xmlText(*getLog::deviceSelfTest::decode(core::Payload(563))),
            shortLog("Device Self-test Log (Log ID = 6)"));
}

TEST(DriveLogs, AnyNVMeDriveIsAskedForTheWholePageWithoutUUID) {
  // Not the maker's, with a UUID list: neither matters. ELPE 3 reads four entries.
  auto device = std::make_shared<test::FakeDevice>();
  core::writeUInt8(device->attributes, properties::uuidSupported(), 1);
  core::writeUInt8(device->attributes, properties::errorLogPageEntries(), 3);
  device->answer("GetLogPage", {});
  core::AttributeCollection one;
  core::writeUInt32(one, properties::namespaceId(), 1);
  const struct {
    const char* name;
    bool perNamespace;  // the drive's LPA bit 0
    uint32_t dword10, namespaceId;
  } cases[] = {
      {"ErrorInfo", false, 0x003F0001, 0xFFFFFFFF},
      {"SmartHealthInfo", false, 0x007F0002, 0xFFFFFFFF},
      {"smarthealthinfo", true, 0x007F0002, 1},
      {"FirmwareSlotInfo", true, 0x007F0003, 0xFFFFFFFF},
      {"DeviceSelfTestLog", false, 0x008C0006, 0xFFFFFFFF},
  };
  for (const auto& c : cases) {
    core::writeUInt8(device->attributes, properties::smartPerNamespace(), c.perNamespace);
    const auto log = getLog::makeLog(c.name, device, one);
    ASSERT_TRUE(log) << c.name;
    EXPECT_EQ(log->sendCommand(), core::Status::success()) << c.name;
    const auto& entry = device->sentNvme(device->sent.size() - 1).submissionEntry;
    EXPECT_EQ(entry.dword(10), c.dword10) << c.name;
    EXPECT_EQ(entry.dword(1), c.namespaceId) << c.name;
    EXPECT_EQ(entry.dword(14), 0u) << c.name;
  }
  device->protocols.clear();
  EXPECT_EQ(getLog::makeLog("ErrorInfo", device, {})->sendCommand().code(), 35);
}

TEST(DriveLogs, HealthFactsFromTheSmartHealthRows) {
  // Spare below threshold and reliability degraded, 321 K, 41237 hours, 2^64 + 5 unsafe
  // shutdowns.
  const auto worn = payloadWith(512, {{0, {0x05, 0x41, 0x01, 6, 10, 104}},
                                      {128, {0x15, 0xA1}},
                                      {144, {5, 0, 0, 0, 0, 0, 0, 0, 1}},
                                      {160, {38}}});
  auto device = std::make_shared<test::FakeDevice>();
  device->answer("GetLogPage", {core::Status::success(), worn, nullptr});
  features::health::HealthFacts facts;
  ASSERT_EQ(features::health::readNvmeHealthFacts(device, facts), core::Status::success());
  EXPECT_EQ(facts.protocol, "NVMe");
  EXPECT_FALSE(facts.reportsHealthy);
  EXPECT_EQ(facts.problems, (std::vector<std::string>{"Available Spare Below Threshold",
                                                      "NVM Subsystem Reliability Degraded"}));
  ASSERT_EQ(facts.criticalWarnings.size(), 6u);
  EXPECT_EQ(facts.criticalWarnings[1],
            std::make_pair(std::string("Temperature Above or Below a Threshold"), false));
  EXPECT_EQ(facts.temperatureCelsius, 48);
  EXPECT_EQ(facts.powerOnHours, 41237u);
  EXPECT_EQ(facts.percentageUsed, 104u);
  EXPECT_EQ(facts.availableSparePercent, 6u);
  EXPECT_EQ(facts.availableSpareThresholdPercent, 10u);
  EXPECT_EQ(facts.unsafeShutdowns, "18446744073709551621");
  EXPECT_EQ(facts.mediaErrors, "38");

  // A drive that reports nothing wrong, and no temperature; and one that refuses the log.
  auto healthy = std::make_shared<test::FakeDevice>();
  healthy->answer("GetLogPage", {core::Status::success(), core::Payload(512), nullptr});
  features::health::HealthFacts quiet;
  ASSERT_EQ(features::health::readNvmeHealthFacts(healthy, quiet), core::Status::success());
  EXPECT_TRUE(quiet.reportsHealthy && quiet.problems.empty());
  EXPECT_FALSE(quiet.temperatureCelsius.has_value());
  features::health::HealthFacts untouched;
  EXPECT_EQ(features::health::readNvmeHealthFacts(std::make_shared<test::FakeDevice>(), untouched),
            core::Status::notImplemented());
  EXPECT_EQ(untouched.protocol, "");
}
