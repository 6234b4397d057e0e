#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "orlo/commands/ata/Command.h"
#include "orlo/commands/ata/Completion.h"
#include "orlo/commands/ata/Layout.h"
#include "orlo/features/ata_smart/DeviceStatistics.h"
#include "orlo/features/ata_smart/SmartAttributesDecoder.h"
#include "orlo/features/health/ATAHealthFacts.h"
#include "support/ExpectedText.h"
#include "support/FakeDevice.h"

namespace {

using orlo::core::Payload;
using orlo::testing::xmlText;
namespace ata = orlo::features::ata_smart;
namespace layout = orlo::commands::ata::layout;

void put(Payload& payload, uint32_t at, std::initializer_list<uint8_t> bytes) {
  for (const uint8_t byte : bytes) payload[at++] = byte;
}

// Five used entries and an unused one between them, each byte unlike its neighbours:
// a temperature (raw byte 0), a pre-failure count at its threshold, power-on hours
// (raw bytes 3:0) without a threshold, a pre-failure rate whose worst fell to its
// threshold, and an advisory attribute without a name at its threshold.
Payload craftedData() {
  Payload data(512);
  put(data, 0, {0x10, 0x00});
  put(data, 2, {0xC2, 0x22, 0x01, 0x42, 0x34, 0x23, 0x05, 0x13, 0x07, 0x31, 0x09, 0x0B});
  put(data, 14, {0x05, 0x33, 0x10, 0x09, 0x07, 0xB1, 0x06, 0x02, 0x03, 0x04, 0x08, 0x0C});
  put(data, 26, {0x00, 0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x99, 0xAA, 0xBB});
  put(data, 38, {0x09, 0x32, 0x00, 0x63, 0x62, 0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x0D});
  put(data, 50, {0x01, 0x0F, 0x00, 0x64, 0x2D, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x0E});
  put(data, 62, {0xC8, 0x30, 0x00, 0x0A, 0x0B, 0x5A, 0x4B, 0x3C, 0x2D, 0x1E, 0x0F, 0x1F});
  return data;
}

// In another order than the data, and without attribute 9.
Payload craftedThresholds() {
  Payload thresholds(512);
  put(thresholds, 2, {0xC8, 0x0A});
  put(thresholds, 14, {0x01, 0x32});
  put(thresholds, 26, {0x05, 0x0A});
  put(thresholds, 38, {0xC2, 0x00});
  return thresholds;
}

void statistic(Payload& log, uint32_t page, uint32_t offset, uint64_t quadword) {
  for (uint32_t at = 0; at < 8; ++at) {
    log[page * 512 + offset + at] = static_cast<uint8_t>(quadword >> (8 * at));
  }
}

// Pages 0 to 7. Page 0 lists 1, 7, 5 and 6; page 3 has a header but is not listed.
// Statistics with bits above their width, one supported but not valid, one not
// supported, one with its monitored condition met, and a temperature below zero.
Payload craftedStatistics() {
  Payload log(8 * 512);
  put(log, 0, {0x01, 0x00, 0x00});
  put(log, 8, {0x04, 0x01, 0x07, 0x05, 0x06});
  for (const uint8_t page : {1, 3, 5, 7}) put(log, page * 512, {0x01, 0x00, page});
  statistic(log, 1, 8, 0xC000'8899'0A0B'0C0Dull);
  statistic(log, 1, 16, 0x8000'0000'0000'1234ull);
  statistic(log, 1, 24, 0xC877'0605'0403'0201ull);
  statistic(log, 1, 32, 0x0000'1111'2222'3333ull);
  statistic(log, 1, 40, 0xC000'1514'1312'1110ull);
  statistic(log, 3, 8, 0xC000'0000'0000'0001ull);
  statistic(log, 5, 8, 0xC000'0000'0000'00FBull);
  statistic(log, 5, 32, 0xC000'0000'0000'0146ull);
  statistic(log, 7, 8, 0xC000'0000'0000'005Aull);
  return log;
}

std::shared_ptr<const orlo::core::ProtocolResult> returned(uint8_t mid, uint8_t high) {
  orlo::commands::ata::TaskFile registers;
  registers.lbaMid = mid;
  registers.lbaHigh = high;
  registers.command = 0x50;
  return std::make_shared<orlo::commands::ata::Completion>(registers);
}

TEST(SmartAttributes, CraftedSectorsGiveTheExpectedTree) {
  const auto tree =
      ata::decodeSmartAttributes(craftedData(), craftedThresholds(), ata::SmartVerdict::failed);
  EXPECT_EQ(xmlText(*tree), orlo::testing::expectedXml("ata_smart/smart_attributes.xml"));

  // Short data gives the verdict alone; short thresholds leave every threshold unknown.
  EXPECT_EQ(
      ata::decodeSmartAttributes(Payload(511), craftedThresholds(), ata::SmartVerdict::unknown)
          ->properties()
          .size(),
      1u);
  for (const auto& attribute : ata::readSmartAttributes(craftedData(), Payload(511))) {
    EXPECT_FALSE(attribute.threshold.has_value());
  }
}

TEST(SmartAttributes, VerdictComesFromLbaMidAndHigh) {
  EXPECT_EQ(ata::smartVerdict(returned(0x4F, 0xC2).get()), ata::SmartVerdict::passed);
  EXPECT_EQ(ata::smartVerdict(returned(0xF4, 0x2C).get()), ata::SmartVerdict::failed);
  EXPECT_EQ(ata::smartVerdict(returned(0x4F, 0x2C).get()), ata::SmartVerdict::unknown);
  EXPECT_EQ(ata::smartVerdict(nullptr), ata::SmartVerdict::unknown);
}

TEST(DeviceStatistics, CraftedLogGivesTheExpectedTree) {
  const Payload log = craftedStatistics();
  EXPECT_EQ(xmlText(*ata::decodeDeviceStatistics(log)),
            orlo::testing::expectedXml("ata_smart/device_statistics.xml"));

  // Not valid, unlisted, or a page whose header names another page: no value.
  EXPECT_EQ(ata::validStatistic(log, layout::kPowerOnHours), std::nullopt);
  EXPECT_EQ(ata::validStatistic(log, {3, 8, orlo::core::bits(7, 0)}), std::nullopt);
  Payload misplaced(log.data(), log.size());
  misplaced[7 * 512 + 2] = 6;
  EXPECT_EQ(ata::validStatistic(misplaced, layout::kPercentageUsed), std::nullopt);
  EXPECT_EQ(ata::validStatistic(Payload(7 * 512), layout::kPercentageUsed), std::nullopt);
  EXPECT_EQ(ata::validStatistic(log, layout::kPercentageUsed), 90u);
}

orlo::test::FakeDevice::Reply good(Payload payload,
                                   std::shared_ptr<const orlo::core::ProtocolResult> result = {}) {
  return {orlo::core::Status::success(), payload, result};
}

// A drive answering from the bundled failing image's replies, or without statistics.
std::shared_ptr<orlo::test::FakeDevice> failingDrive(bool statistics) {
  const std::string image = "images/sata-corvid-s300-failing/";
  auto file = [&](const std::string& name) {
    const std::string bytes = orlo::testing::testData(image + name);
    return Payload(bytes.data(), bytes.size());
  };
  auto device = std::make_shared<orlo::test::FakeDevice>(std::set<std::string>{"ATA"});
  device->answer("SmartReadData", good(file("ata-cmdb0-lba12734208-count1-featd0.bin")));
  device->answer("SmartReadThresholds", good(file("ata-cmdb0-lba12734208-count1-featd1.bin")));
  device->answer("SmartReturnStatus", good({}, returned(0xF4, 0x2C)));
  auto log = [](uint8_t address) {
    return [address](const orlo::core::Command& command) {
      const auto* ata = dynamic_cast<const orlo::commands::ata::Command*>(&command);
      return ata != nullptr && ata->currentTaskFile.lbaLow == address;
    };
  };
  if (statistics) {
    device->answer(log(0), good(file("ata-cmd2f-lba0-count1.bin")));
    device->answer(log(4), good(file("ata-cmd2f-lba4-count8.bin")));
  }
  return device;
}

TEST(ATAHealthFacts, FromStatisticsElseFromAttributes) {
  for (const bool statistics : {true, false}) {
    orlo::features::health::HealthFacts facts;
    ASSERT_TRUE(orlo::core::succeeded(
        orlo::features::health::readAtaHealthFacts(failingDrive(statistics), facts)));
    EXPECT_EQ(facts.protocol, "ATA");
    EXPECT_FALSE(facts.reportsHealthy);
    EXPECT_EQ(facts.problems,
              (std::vector<std::string>{"SMART overall-health self-assessment: FAILED",
                                        "Attribute 5 Reallocated Sector Count: failing now"}));
    EXPECT_EQ(facts.notes,
              std::vector<std::string>{"Attribute 1 Raw Read Error Rate: failed in the past"});
    EXPECT_EQ(facts.temperatureCelsius, statistics ? 41 : 34);
    EXPECT_EQ(facts.powerOnHours, 31877u);
    EXPECT_EQ(facts.percentageUsed, statistics ? std::optional<unsigned>(87) : std::nullopt);
    EXPECT_EQ(facts.mediaErrors, "42");
    EXPECT_EQ(facts.unsafeShutdowns, "37");
    EXPECT_EQ(facts.availableSparePercent, 12u);
    EXPECT_EQ(facts.availableSpareThresholdPercent, 10u);
    EXPECT_TRUE(facts.criticalWarnings.empty());
  }
  orlo::features::health::HealthFacts facts;
  EXPECT_EQ(
      orlo::features::health::readAtaHealthFacts(std::make_shared<orlo::test::FakeDevice>(), facts)
          .code(),
      35);
}

}  // namespace
