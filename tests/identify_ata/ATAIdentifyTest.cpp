#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/identify/ATAIdentify.h"
#include "support/FakeDevice.h"

namespace {

using orlo::core::Attribute;
using orlo::core::AttributeCollection;
using orlo::core::Payload;
using orlo::core::Status;
using orlo::features::identify::ata::Identify;
using orlo::test::FakeDevice;
namespace properties = orlo::core::properties;

std::shared_ptr<FakeDevice> ataDrive(bool csmi) {
  auto device = std::make_shared<FakeDevice>(std::set<std::string>{"ATA"});
  orlo::core::writeUInt8(device->attributes, properties::csmi(), csmi ? 1 : 0);
  device->answer("IdentifyDevice", {Status::success(), Payload(512), nullptr});
  return device;
}

std::vector<std::string> sentNames(const FakeDevice& device) {
  std::vector<std::string> names;
  for (const auto& sent : device.sent) names.push_back(sent.command->name());
  return names;
}

TEST(ATAIdentify, RefusesOtherProtocolsAndNVMeStructuresWithoutSending) {
  struct Case {
    std::string protocol;
    Attribute (*attribute)();
    Status expected;
  };
  const Case cases[] = {
      {"ATA", nullptr, Status::success()},
      {"NVME", nullptr, Status(35, "")},
      {"ATA", properties::controllerNamespaceStructure, Status(10, 3, "")},
      {"ATA", properties::namespaceId, Status(10, 3, "")},
  };
  for (const Case& c : cases) {
    auto device = std::make_shared<FakeDevice>(std::set<std::string>{c.protocol});
    AttributeCollection attributes;
    if (c.attribute != nullptr) orlo::core::writeUInt8(attributes, c.attribute(), 0);
    Identify identify(device, attributes);
    EXPECT_EQ(identify.canRun(), c.expected) << c.protocol;
    if (c.expected != Status::success()) {
      EXPECT_EQ(identify.identify(), c.expected);
      EXPECT_TRUE(device->sent.empty());
    }
  }
}

TEST(ATAIdentify, WarmUpCommandsPrecedeIdentifyUnlessBehindCSMI) {
  auto csmi = ataDrive(true);
  EXPECT_EQ(Identify(csmi, {}).identify(), Status::success());
  EXPECT_EQ(sentNames(*csmi), std::vector<std::string>{"IdentifyDevice"});

  auto direct = ataDrive(false);
  direct->answer("ReadDMA", {Status::success(), Payload(512), nullptr});
  EXPECT_EQ(Identify(direct, {}).identify(), Status::success());
  EXPECT_EQ(sentNames(*direct), (std::vector<std::string>{"ReadDMA", "IdentifyDevice"}));

  // ReadDMA and CheckPowerMode both fail (unanswered), and identify still goes on.
  auto stuck = ataDrive(false);
  EXPECT_EQ(Identify(stuck, {}).identify(), Status::success());
  EXPECT_EQ(sentNames(*stuck),
            (std::vector<std::string>{"ReadDMA", "CheckPowerMode", "IdentifyDevice"}));
}

TEST(ATAIdentify, IdentifyDeviceDecidesStatusAndDataEvenWhenItFails) {
  auto device = std::make_shared<FakeDevice>(std::set<std::string>{"ATA"});
  orlo::core::writeUInt8(device->attributes, properties::csmi(), 1);
  orlo::core::writeString(device->attributes, properties::serialNumber(), "SN 7");
  device->answer("IdentifyDevice", {Status::retrieveDataFailed(), Payload(512), nullptr});
  Identify identify(device, {});
  EXPECT_TRUE(identify.getXml()->isEmpty());

  EXPECT_EQ(identify.identify(), Status::retrieveDataFailed());
  const auto tree = identify.getXml();
  EXPECT_EQ(tree->getAttribute("name"), "ATA Identify Device");
  EXPECT_EQ(tree->find("Object", "name", "Word 10-19", 2).at(0)->getAttribute("value"), "SN 7");
}

}  // namespace
