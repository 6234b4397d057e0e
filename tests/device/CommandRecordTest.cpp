#include <gtest/gtest.h>

#include <memory>

#include "orlo/core/CommandRecord.h"
#include "orlo/core/xml/XmlObject.h"

using namespace orlo;

namespace {

struct NamedCommand : core::Command {
  using core::Command::Command;
  std::unique_ptr<core::Command> clone() const override {
    return std::make_unique<NamedCommand>(protocol(), name());
  }
  std::string toString() const override { return name(); }
  std::unique_ptr<core::xml::XmlObject> toXml() const override {
    return std::make_unique<core::xml::XmlObject>();
  }
};

struct TaggedResult : core::ProtocolResult {
  explicit TaggedResult(int tag) : tag(tag) {}
  std::unique_ptr<core::ProtocolResult> clone() const override {
    return std::make_unique<TaggedResult>(tag);
  }
  void fillStatus(core::Status& status) const override { status.setCode(tag); }
  int tag;
};

struct TaggedPath : core::CommandPath {
  explicit TaggedPath(int tag) : tag(tag) {}
  std::unique_ptr<core::CommandPath> clone() const override {
    return std::make_unique<TaggedPath>(tag);
  }
  int tag;
};

}  // namespace

TEST(CommandRecord, StartsEmptyAndSuccessful) {
  core::CommandRecord record;
  EXPECT_EQ(record.status, core::Status(0, "Completed successfully."));
  EXPECT_EQ(record.inputPayload.size(), 0u);
  EXPECT_EQ(record.outputPayload.size(), 0u);
  EXPECT_FALSE(record.command || record.protocolResult || record.commandPath);
  EXPECT_TRUE(record.startTime.is_not_a_date_time());
  EXPECT_TRUE(record.endTime.is_not_a_date_time());
}

TEST(CommandRecord, AssignmentClonesOwnedObjectsAndSharesPayloads) {
  core::CommandRecord source;
  source.command = std::make_unique<NamedCommand>("NVME", "Identify");
  source.protocolResult = std::make_unique<TaggedResult>(7);
  source.commandPath = std::make_unique<TaggedPath>(9);
  source.status = core::Status(10, 33, "x");
  source.outputPayload = core::Payload(4);
  source.duration = 12;
  source.recordFlag = 1;

  core::CommandRecord copy;
  copy = source;
  ASSERT_TRUE(copy.command && copy.protocolResult && copy.commandPath);
  EXPECT_NE(copy.command.get(), source.command.get());
  EXPECT_NE(copy.protocolResult.get(), source.protocolResult.get());
  EXPECT_NE(copy.commandPath.get(), source.commandPath.get());
  EXPECT_EQ(static_cast<TaggedResult&>(*copy.protocolResult).tag, 7);
  EXPECT_EQ(static_cast<TaggedPath&>(*copy.commandPath).tag, 9);
  EXPECT_EQ(copy.status, source.status);
  EXPECT_EQ(copy.duration, 12u);
  EXPECT_EQ(copy.recordFlag, 1);

  static_cast<TaggedPath&>(*source.commandPath).tag = 1;
  source.command->copyCommandFields(NamedCommand("NVME", "Other"));
  EXPECT_EQ(static_cast<TaggedPath&>(*copy.commandPath).tag, 9);
  EXPECT_EQ(copy.command->name(), "Identify");
  source.outputPayload[3] = 0xAB;
  EXPECT_EQ(copy.outputPayload[3], 0xAB);

  core::CommandRecord empty;
  copy = empty;
  EXPECT_FALSE(copy.command || copy.protocolResult || copy.commandPath);
}
