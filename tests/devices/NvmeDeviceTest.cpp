#include <gtest/gtest.h>
#include <linux/nvme_ioctl.h>
#include <sys/ioctl.h>

#include <cerrno>
#include <cstring>
#include <functional>
#include <memory>
#include <string>

#include "devices/FakeKernel.h"
#include "devices/NvmeDevice.h"
#include "devices/NvmeProtocolResult.h"
#include "orlo/commands/ata/IdentifyDevice.h"
#include "orlo/commands/nvme/Identify.h"
#include "orlo/core/OwnStatuses.h"
#include "orlo/core/PropertyDescriptors.h"

namespace {

using orlo::core::Status;
using orlo::devices::NvmeDevice;
using orlo::devices::NvmeProtocolResult;
using orlo::test::FakeKernel;

// /dev/nvme0 opened on a fake kernel.
struct OpenDrive {
  std::shared_ptr<FakeKernel> kernel = std::make_shared<FakeKernel>();
  std::shared_ptr<NvmeDevice> device;
  Status status = NvmeDevice::open("/dev/nvme0", {}, device, kernel);
};

// What the drive does with an admin request: fills its buffer, sets its dword 0,
// and gives the ioctl's result.
using Drive = std::function<int(nvme_passthru_cmd&)>;

TEST(NvmeDevice, SendReportsTheKernelsFailureOrTheDrivesCompletion) {
  struct Case {
    Drive drive;
    Status expected;
    std::string message;
    int statusField;  // of the protocol result; -1 when there is none
    bool payload;
  };
  const Drive answers = [](nvme_passthru_cmd& request) {
    std::memset(reinterpret_cast<void*>(request.addr), 0xA5, request.data_len);
    request.result = 0x1234;
    return 0;
  };
  const Case cases[] = {
      {[](nvme_passthru_cmd&) { return -EACCES; }, Status::retrieveDataFailed(),
       "Could not send Identify to /dev/nvme0: Permission denied. Reading a drive needs root.", -1,
       false},
      {[](nvme_passthru_cmd&) { return -ENOTTY; }, Status::retrieveDataFailed(),
       "Could not send Identify to /dev/nvme0: Inappropriate ioctl for device.", -1, false},
      {[](nvme_passthru_cmd&) { return -EIO; }, Status::retrieveDataFailed(),
       "Could not send Identify to /dev/nvme0: Input/output error.", -1, false},
      // The status field as the kernel returns it, without the phase bit: Do Not
      // Retry is bit 14, More bit 13.
      {[](nvme_passthru_cmd&) { return 0x4002; }, Status::nvmeCommandProblem(),
       "NVMe command reported a problem: Invalid Field in Command (0x4002).", 0x4002, false},
      {[](nvme_passthru_cmd&) { return 0x6109; }, Status::nvmeCommandProblem(),
       "NVMe command reported a problem: Invalid Log Page (0x6109).", 0x6109, false},
      {answers, Status::success(), "", 0, true},
  };
  for (const Case& c : cases) {
    OpenDrive drive;
    ASSERT_EQ(drive.status, Status::success());
    drive.kernel->answer = [&](unsigned long request, void* argument) {
      EXPECT_EQ(request, NVME_IOCTL_ADMIN_CMD);
      auto& passThrough = *static_cast<nvme_passthru_cmd*>(argument);
      EXPECT_EQ(passThrough.opcode, 0x06);
      EXPECT_EQ(passThrough.data_len, 4096u);
      return c.drive(passThrough);
    };
    orlo::commands::nvme::Identify identify;
    const orlo::core::CommandRecord record = drive.device->send(identify);
    EXPECT_EQ(record.status, c.expected) << c.message;
    if (!c.message.empty()) {
      EXPECT_EQ(record.status.message(), c.message);
    }
    const auto* completion = dynamic_cast<const NvmeProtocolResult*>(record.protocolResult.get());
    EXPECT_EQ(completion ? completion->statusField : -1, c.statusField) << c.message;
    if (c.payload) {
      ASSERT_EQ(record.outputPayload.size(), 4096u);
      EXPECT_EQ(record.outputPayload[0], 0xA5);
      EXPECT_EQ(record.outputPayload[4095], 0xA5);
      EXPECT_EQ(completion->completionDword0, 0x1234u);
    } else {
      EXPECT_EQ(record.outputPayload.size(), 0u) << c.message;
    }
  }
}

TEST(NvmeDevice, SendsTheCallersDataOnAnIoQueueAndRefusesWhatCannotGo) {
  OpenDrive drive;
  int calls = 0;
  void* sent = nullptr;
  drive.kernel->answer = [&](unsigned long request, void* argument) {
    ++calls;
    EXPECT_EQ(request, NVME_IOCTL_IO_CMD);
    sent = reinterpret_cast<void*>(static_cast<nvme_passthru_cmd*>(argument)->addr);
    return 0;
  };
  orlo::commands::nvme::Command write("Write");
  write.submissionEntry.bytes[0] = 0x01;
  write.dataOut = true;
  write.transferBytes = 512;
  const orlo::core::Payload data(512);
  const orlo::core::CommandRecord record = drive.device->send(write, data);
  EXPECT_EQ(record.status, Status::success());
  EXPECT_EQ(sent, data.data());
  EXPECT_EQ(record.outputPayload.size(), 0u);

  // Neither a buffer shorter than the transfer nor a command of another protocol
  // reaches the kernel.
  EXPECT_EQ(drive.device->send(write, orlo::core::Payload(511)).status,
            orlo::core::bufferShorterThanTransfer());
  orlo::commands::ata::IdentifyDevice ata;
  EXPECT_EQ(drive.device->send(ata).status, Status(35, ""));
  EXPECT_EQ(calls, 1);
}

TEST(NvmeDevice, OpenTakesTheNamespaceOfTheNodeAndClosesIt) {
  {
    OpenDrive controller;
    EXPECT_FALSE(orlo::core::hasAttribute(controller.device->attributes,
                                          orlo::core::properties::namespaceId()));
  }
  auto kernel = std::make_shared<FakeKernel>();
  kernel->answer = [](unsigned long request, void*) { return request == NVME_IOCTL_ID ? 3 : 0; };
  std::shared_ptr<NvmeDevice> device;
  ASSERT_EQ(NvmeDevice::open("/dev/nvme0n3", {}, device, kernel), Status::success());
  EXPECT_EQ(orlo::core::readUInt32(device->attributes, orlo::core::properties::namespaceId()), 3u);
  device.reset();
  EXPECT_EQ(kernel->closed, 1);

  kernel->openError = EACCES;
  const Status refused = NvmeDevice::open("/dev/nvme1", {}, device, kernel);
  EXPECT_EQ(refused, Status::openFileFailed());
  EXPECT_EQ(refused.message(),
            "Could not open /dev/nvme1: Permission denied. Reading a drive needs root.");
}

}  // namespace
