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

TEST(CommandRecord, StartsEmptyAndSuccessful) {
  core::CommandRecord record;
  EXPECT_EQ(record.status, core::Status(0, "Completed successfully."));
  EXPECT_EQ(record.inputPayload.size() + record.outputPayload.size(), 0u);
  EXPECT_FALSE(record.command || record.protocolResult || record.commandPath);
  EXPECT_TRUE(record.startTime.is_not_a_date_time() && record.endTime.is_not_a_date_time());
}

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
  EXPECT_NE(copy.command.get(), source.command.get());
  EXPECT_NE(copy.protocolResult.get(), source.protocolResult.get());
  EXPECT_NE(copy.commandPath.get(), source.commandPath.get());
  EXPECT_EQ(copy.status, core::Status(10, 33, "x"));
  EXPECT_EQ(copy.duration, 12u);
  EXPECT_EQ(copy.recordFlag, 1);

  static_cast<Path&>(*source.commandPath).tag = 1;
  static_cast<Result&>(*source.protocolResult).tag = 1;
  source.command->copyCommandFields(commands::nvme::Command("Other"));
  EXPECT_EQ(static_cast<Path&>(*copy.commandPath).tag, 9);
  EXPECT_EQ(static_cast<Result&>(*copy.protocolResult).tag, 7);
  EXPECT_EQ(copy.command->name(), "Identify");
  source.outputPayload[3] = 0xAB;
  EXPECT_EQ(copy.outputPayload[3], 0xAB);

  copy = core::CommandRecord();
  EXPECT_FALSE(copy.command || copy.protocolResult || copy.commandPath);
}
