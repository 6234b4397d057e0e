#include <gtest/gtest.h>

#include <memory>

#include "orlo/commands/nvme/Identify.h"
#include "support/FakeDevice.h"

using namespace orlo;

namespace {

struct Result : core::ProtocolResult {
  std::unique_ptr<core::ProtocolResult> clone() const override {
    return std::make_unique<Result>(*this);
  }
  void fillStatus(core::Status& status) const override { status.setCode(tag); }
  int tag = 7;
};

struct Path : core::CommandPath {
  std::unique_ptr<core::CommandPath> clone() const override {
    return std::make_unique<Path>(*this);
  }
  int tag = 9;
};

}  // namespace

TEST(CommandRecord, AssignmentClonesOwnedObjectsAndSharesPayloads) {
  test::FakeDevice device;
  device.answer("Identify",
                {core::Status(10, 33, "x"), core::Payload(4), std::make_shared<Result>()});
  commands::nvme::Identify identify;
  core::CommandRecord source = device.send(identify);
  source.commandPath = std::make_unique<Path>();
  source.duration = 12;
  source.recordFlag = 1;

  core::CommandRecord copy;
  copy = source;
  ASSERT_TRUE(copy.command && copy.protocolResult && copy.commandPath);
  EXPECT_EQ(copy.status, core::Status(10, 33, "x"));
  EXPECT_EQ(copy.duration, 12u);
  EXPECT_EQ(copy.recordFlag, 1);
  // Changes to the source's objects do not reach the copy; changes to its payloads do.
  static_cast<Path&>(*source.commandPath).tag = 1;
  static_cast<Result&>(*source.protocolResult).tag = 1;
  source.command->copyCommandFields(commands::nvme::Command("Other"));
  source.outputPayload[3] = 0xAB;
  EXPECT_EQ(static_cast<Path&>(*copy.commandPath).tag, 9);
  EXPECT_EQ(static_cast<Result&>(*copy.protocolResult).tag, 7);
  EXPECT_EQ(copy.command->name(), "Identify");
  EXPECT_EQ(copy.outputPayload[3], 0xAB);

  copy = core::CommandRecord();
  EXPECT_FALSE(copy.command || copy.protocolResult || copy.commandPath);
  EXPECT_EQ(copy.status, core::Status(0, "Completed successfully."));
  EXPECT_TRUE(copy.startTime.is_not_a_date_time() && copy.endTime.is_not_a_date_time());
}
