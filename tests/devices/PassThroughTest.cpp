#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "devices/AtaPassThrough.h"
#include "devices/NvmePassThrough.h"
#include "devices/NvmeStatusText.h"
#include "orlo/commands/ata/CheckPowerMode.h"
#include "orlo/commands/ata/IdentifyDevice.h"
#include "orlo/commands/ata/ReadDMA.h"
#include "orlo/commands/ata/ReadLogExt.h"
#include "orlo/commands/ata/Smart.h"
#include "orlo/commands/nvme/GetLogPage.h"

namespace {

TEST(NvmeStatusText, NamesGenericAndCommandSpecificStatuses) {
  const std::pair<uint16_t, std::string> cases[] = {
      {0x0001, "Invalid Command Opcode (0x0001)"},
      {0x2286, "Access Denied (0x2286)"},
      {0x00C5, "Generic Command Status 0xC5 (0x00C5)"},
      {0x07FF, "Vendor Specific Status 0xFF (0x07FF)"},
  };
  for (const auto& [field, text] : cases) EXPECT_EQ(orlo::devices::nvmeStatusText(field), text);
}

TEST(NvmePassThrough, CarriesTheEntryAndTheBuffer) {
  orlo::commands::nvme::GetLogPage command;
  for (unsigned dword = 1; dword < 16; ++dword)
    command.submissionEntry.setDword(dword, dword * 0x11);
  command.submissionEntry.bytes[1] = 0x40;
  uint8_t buffer[512];
  const nvme_passthru_cmd request = orlo::devices::nvmePassThrough(command, buffer, 512);
  EXPECT_EQ(request.opcode, 2);
  EXPECT_EQ(request.flags, 0x40);
  EXPECT_EQ((std::vector{request.nsid, request.cdw2, request.cdw3, request.cdw10, request.cdw11,
                         request.cdw12, request.cdw13, request.cdw14, request.cdw15}),
            (std::vector{0x11u, 0x22u, 0x33u, 0xAAu, 0xBBu, 0xCCu, 0xDDu, 0xEEu, 0xFFu}));
  EXPECT_EQ(request.addr, reinterpret_cast<uintptr_t>(buffer));
  EXPECT_EQ(request.data_len, 512u);
  EXPECT_EQ(request.metadata, 0u);
}

TEST(AtaPassThrough, ProtocolDirectionAndRegistersFollowTheCommand) {
  orlo::commands::ata::IdentifyDevice identify;
  orlo::commands::ata::ReadDMA readDma;
  orlo::commands::ata::CheckPowerMode checkPowerMode;
  orlo::commands::ata::SmartReturnStatus smartStatus;
  orlo::commands::ata::ReadLogExt readLog(0x04, 0x0102, 0x0203);
  struct Case {
    const orlo::commands::ata::Command& command;
    uint8_t byte1;
    uint8_t byte2;
    uint32_t length;
  };
  const Case cases[] = {
      {identify, 4 << 1, 0x0E, 512},      // PIO data-in, from the device, in sector counts
      {readDma, 6 << 1, 0x0E, 512},       // DMA
      {checkPowerMode, 3 << 1, 0x20, 0},  // non-data, registers back
      {smartStatus, 3 << 1, 0x20, 0},    {readLog, 4 << 1 | 1, 0x0E, 0x0203 * 512},  // 48-bit
  };
  for (const Case& c : cases) {
    const std::array<uint8_t, 16> cdb = orlo::devices::ataPassThrough16(c.command);
    EXPECT_EQ(cdb[1], c.byte1) << c.command.name();
    EXPECT_EQ(cdb[2], c.byte2) << c.command.name();
    EXPECT_EQ(cdb[6], c.command.currentTaskFile.sectorCount);
    EXPECT_EQ(cdb[13], c.command.currentTaskFile.device);
    EXPECT_EQ(orlo::devices::ataTransferLength(c.command), c.length);
  }

  // SMART: subcommand in Features, signature in LBA Mid and High. READ LOG EXT: the
  // high bytes of count and page in the previous registers.
  const auto smart = orlo::devices::ataPassThrough16(smartStatus);
  EXPECT_EQ((std::vector<int>{smart[4], smart[10], smart[12], smart[14]}),
            (std::vector<int>{0xDA, 0x4F, 0xC2, 0xB0}));
  const auto log = orlo::devices::ataPassThrough16(readLog);
  EXPECT_EQ((std::vector<int>{log[5], log[6], log[8], log[9], log[10], log[14]}),
            (std::vector<int>{0x02, 0x03, 0x04, 0x01, 0x02, 0x2F}));

  orlo::commands::ata::ReadDMA extended;
  extended.extended = true;
  extended.previousTaskFile.lbaLow = 0xAB;
  extended.currentTaskFile.lbaLow = 0xCD;
  const auto cdb = orlo::devices::ataPassThrough16(extended);
  EXPECT_EQ(cdb[1] & 1, 1);
  EXPECT_EQ(cdb[7], 0xAB);
  EXPECT_EQ(cdb[8], 0xCD);
}

}  // namespace
