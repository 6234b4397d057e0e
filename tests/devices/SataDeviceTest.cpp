#include <gtest/gtest.h>
#include <scsi/sg.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "devices/FakeKernel.h"
#include "devices/SataDevice.h"
#include "orlo/commands/ata/CheckPowerMode.h"
#include "orlo/commands/ata/Completion.h"
#include "orlo/commands/ata/IdentifyDevice.h"
#include "orlo/commands/ata/Smart.h"
#include "orlo/commands/nvme/Identify.h"
#include "orlo/core/OwnStatuses.h"

namespace {

using orlo::core::Status;
using orlo::devices::SataDevice;
using orlo::test::FakeKernel;

// What the drive and the kernel make of one SG_IO request.
using Drive = std::function<int(sg_io_hdr_t&)>;

Drive fails(int error) {
  return [error](sg_io_hdr_t&) { return -error; };
}

// A completion with the given SCSI, host and driver statuses and sense data.
Drive completes(uint8_t scsi, uint16_t host, uint16_t driver, std::vector<uint8_t> sense = {}) {
  return [=](sg_io_hdr_t& request) {
    request.status = scsi;
    request.host_status = host;
    request.driver_status = driver;
    request.sb_len_wr =
        static_cast<unsigned char>(std::min<size_t>(sense.size(), request.mx_sb_len));
    if (request.sb_len_wr > 0) std::memcpy(request.sbp, sense.data(), request.sb_len_wr);
    return 0;
  };
}

// Descriptor-format sense with an ATA Status Return descriptor, as libata returns
// the registers (CHECK CONDITION, driver status "sense returned").
Drive returnsRegisters(uint8_t status, uint8_t error, uint8_t count, uint8_t lbaMid,
                       uint8_t lbaHigh) {
  return completes(2, 0, 0x08, {0x72,  0x01, 0x00,  0x1D, 0, 0, 0,      14, 0x09,    12,   0,
                                error, 0,    count, 0,    0, 0, lbaMid, 0,  lbaHigh, 0x40, status});
}

TEST(SataDevice, SendReportsTheKernelsFailureOrTheDrivesCompletion) {
  orlo::commands::ata::IdentifyDevice identify;
  orlo::commands::ata::SmartReturnStatus smartStatus;
  orlo::commands::ata::CheckPowerMode powerMode;
  struct Case {
    orlo::commands::ata::Command& command;
    Drive drive;
    std::string message;  // of the failure; success when empty
    // Status, Error, Count, LBA Mid and High of the returned registers; none when empty.
    std::vector<int> registers;
  };
  const std::string refused = "The drive did not take the ATA pass-through command (SCSI status ";
  const Case cases[] = {
      {identify,
       fails(EACCES),
       "Could not send IdentifyDevice to /dev/sda: Permission denied. Reading a drive needs root.",
       {}},
      {identify, fails(EIO), "Could not send IdentifyDevice to /dev/sda: Input/output error.", {}},
      {identify,
       returnsRegisters(0x51, 0x04, 0, 0, 0),
       "ATA command reported a problem: Aborted Command (Status 0x51, Error 0x04).",
       {0x51, 0x04, 0, 0, 0}},
      // A threshold exceeded: the answer is in LBA Mid and High of a completion
      // without error.
      {smartStatus, returnsRegisters(0x50, 0, 0, 0xF4, 0x2C), "", {0x50, 0, 0, 0xF4, 0x2C}},
      // Fixed format: VALID set, Error, Status, Device, Count, then LBA in bytes 9-11.
      {powerMode,
       completes(2, 0, 0x08, {0xF0, 0, 0x01, 0x00, 0x50, 0x40, 0xFF, 10, 0, 0, 0x4F, 0xC2, 0, 0}),
       "",
       {0x50, 0, 0xFF, 0x4F, 0xC2}},
      {identify,
       completes(2, 0, 0x08, {0xF0, 0, 0x0B, 0x10, 0x51, 0x40, 0, 10, 0, 0, 0, 0, 0, 0}),
       "ATA command reported a problem: ID Not Found (Status 0x51, Error 0x10).",
       {0x51, 0x10, 0, 0, 0}},
      {identify,
       completes(2, 0, 0x08, {0x70, 0, 0x05, 0, 0, 0, 0, 10, 0, 0, 0, 0, 0x20, 0x00}),
       refused + "0x02, host 0x00, driver 0x08, sense key 0x05, ASC 0x20, ASCQ 0x00).",
       {}},
      {identify, completes(0, 0x03, 0), refused + "0x00, host 0x03, driver 0x00).", {}},
      {identify, completes(0, 0, 0x06), refused + "0x00, host 0x00, driver 0x06).", {}},
      {identify,
       [](sg_io_hdr_t& request) {
         std::memset(request.dxferp, 0x5A, request.dxfer_len);
         return 0;
       },
       "",
       {}},
  };
  for (const Case& c : cases) {
    auto kernel = std::make_shared<FakeKernel>();
    std::shared_ptr<SataDevice> device;
    ASSERT_EQ(SataDevice::open("/dev/sda", device, kernel), Status::success());
    const bool reads = c.command.dataIn;
    kernel->answer = [&](unsigned long request, void* argument) {
      EXPECT_EQ(request, static_cast<unsigned long>(SG_IO));
      auto& header = *static_cast<sg_io_hdr_t*>(argument);
      EXPECT_EQ(header.cmdp[0], 0x85);
      EXPECT_EQ(header.cmdp[14], c.command.currentTaskFile.command);
      EXPECT_EQ(header.dxfer_direction, reads ? SG_DXFER_FROM_DEV : SG_DXFER_NONE);
      EXPECT_EQ(header.dxfer_len, reads ? 512u : 0u);
      return c.drive(header);
    };
    const orlo::core::CommandRecord record = device->send(c.command);
    const bool failed = !c.message.empty();
    EXPECT_EQ(record.status, failed ? Status::retrieveDataFailed() : Status::success())
        << c.message;
    if (failed) {
      EXPECT_EQ(record.status.message(), c.message);
    }
    const auto* completion =
        dynamic_cast<const orlo::commands::ata::Completion*>(record.protocolResult.get());
    std::vector<int> registers;
    if (completion) {
      const auto& r = completion->registers;
      registers = {r.command, r.feature, r.sectorCount, r.lbaMid, r.lbaHigh};
    }
    EXPECT_EQ(registers, c.registers) << c.message;
    const bool payload = reads && !failed;
    ASSERT_EQ(record.outputPayload.size(), payload ? 512u : 0u) << c.message;
    if (payload) {
      EXPECT_EQ(record.outputPayload[511], 0x5A);
    }
  }
}

TEST(SataDevice, RefusesWhatCannotGoBeforeTheKernel) {
  auto kernel = std::make_shared<FakeKernel>();
  std::shared_ptr<SataDevice> device;
  ASSERT_EQ(SataDevice::open("/dev/sda", device, kernel), Status::success());
  int calls = 0;
  kernel->answer = [&](unsigned long, void*) {
    ++calls;
    return 0;
  };
  orlo::commands::nvme::Identify nvme;
  EXPECT_EQ(device->send(nvme).status, Status(35, ""));
  orlo::commands::ata::Command write("Write");
  write.dataOut = true;
  write.transferBlocks = 1;
  EXPECT_EQ(device->send(write, orlo::core::Payload(511)).status,
            orlo::core::bufferShorterThanTransfer());
  EXPECT_EQ(calls, 0);
}

}  // namespace
