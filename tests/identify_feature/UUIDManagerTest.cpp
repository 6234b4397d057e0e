#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "orlo/core/PropertyDescriptors.h"
#include "orlo/features/feature/UUID/UUIDManager.h"
#include "support/FakeDevice.h"

using namespace orlo::core;
using namespace orlo::features::uuid;
using orlo::test::FakeDevice;

namespace {

const std::vector<GUID16> kLowLogs{ZeroGUID, VendorGUID, VendorGUIDReversed, LogGUID,
                                   LogGUIDReversed};
const std::vector<GUID16> kMarketing{VendorGUID, VendorGUIDReversed};

// A drive with a serial number of its own, as registrations last for the process.
std::shared_ptr<FakeDevice> drive(bool uuidSupported, FakeDevice::Reply reply) {
  static int drives = 0;
  auto device = std::make_shared<FakeDevice>();
  writeUInt8(device->attributes, properties::uuidSupported(), uuidSupported);
  writeString(device->attributes, properties::serialNumber(), "SN" + std::to_string(++drives));
  device->answer("Identify", reply);
  return device;
}

// A UUID list reply: the GUIDs in bytes 16 to 31 of the entries that follow the header.
FakeDevice::Reply uuidList(const std::vector<GUID16>& guids, uint32_t size = 4096) {
  Payload payload(size);
  for (std::size_t i = 0; i < guids.size(); ++i) {
    std::copy(guids[i].begin(), guids[i].end(), payload.data() + 48 + 32 * i);
  }
  return {Status::success(), payload, nullptr};
}

uint8_t indexOn(const std::shared_ptr<FakeDevice>& device, const std::vector<GUID16>& wanted) {
  UUIDManager manager(device);
  manager.supportedUUIDs = wanted;
  return manager.getIndex();
}

}  // namespace

TEST(UUIDManager, OneIdentifyServesEveryManagerOfADrive) {
  auto device = drive(true, uuidList({VendorGUID, LogGUID, LogGUID, VendorGUIDReversed}));
  EXPECT_EQ(indexOn(device, kMarketing), 1);
  EXPECT_EQ(indexOn(device, {VendorGUIDReversed}), 4);
  EXPECT_EQ(indexOn(device, kLowLogs), 0);
  EXPECT_EQ(indexOn(device, {LogGUID}), 3);
  ASSERT_EQ(device->sent.size(), 1u);
  EXPECT_EQ(device->sentNvme(0).submissionEntry.dword(10), 23u);
  EXPECT_EQ(device->sentNvme(0).submissionEntry.dword(1), 0u);
}

TEST(UUIDManager, AFailedOrMissingListLeavesOnlyZeroGUID) {
  auto failing = drive(true, {Status::retrieveDataFailed(), Payload(4096), nullptr});
  EXPECT_EQ(indexOn(failing, kLowLogs), 0);
  EXPECT_EQ(indexOn(failing, kMarketing), 255);
  EXPECT_EQ(failing->sent.size(), 1u);

  auto unsupported = drive(false, uuidList({VendorGUID}));
  EXPECT_EQ(indexOn(unsupported, kLowLogs), 255);
  EXPECT_TRUE(unsupported->sent.empty());
}

TEST(UUIDManager, TheListEndsAtAZeroUUIDAfter127EntriesOrIfShort) {
  std::vector<GUID16> many(128);
  for (std::size_t i = 0; i < many.size(); ++i) many[i][15] = static_cast<uint8_t>(i + 1);
  const auto rows = [](FakeDevice::Reply reply) {
    return UUIDManager(drive(true, reply)).getRegisteredGUIDs().size();
  };
  EXPECT_EQ(rows(uuidList(many, 4160)), 128u);
  EXPECT_EQ(rows(uuidList({ZeroGUID, VendorGUID})), 1u);
  EXPECT_EQ(rows(uuidList(kMarketing, 4095)), 1u);
}
