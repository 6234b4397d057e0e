#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/DriveList.h"
#include "host/ExitCode.h"
#include "host/ResultRenderer.h"

namespace {

using orlo::host::ExitCode;

TEST(DriveList, ListsEachDriveOrSaysWhereNoneWasFound) {
  const struct {
    std::vector<orlo::devices::DriveEntry> drives;
    ExitCode exitCode;
    std::string text;
  } cases[] = {
      {{},
       ExitCode::commandFailed,
       "Result: No drive found: orlo looked for NVMe controllers in /sys-copy/class/nvme and "
       "SATA disks in /sys-copy/block.\n"},
      {{{0, "/dev/nvme0", "NVME", "Corvid P41", "S9", "1.0.2"}},
       ExitCode::success,
       "Drives\n  Drive 0\n    Index: 0\n    Path: /dev/nvme0\n    Protocol: NVME\n    Model "
       "Number: Corvid P41\n    Serial Number: S9\n    Firmware: 1.0.2\n"},
  };
  for (const auto& c : cases) {
    const auto list = orlo::host::driveList(c.drives, "/sys-copy");
    EXPECT_EQ(orlo::host::exitCodeFor(*list), c.exitCode);
    EXPECT_EQ(orlo::host::render(*list, "text"), c.text);
  }
  // Scripts read the list by key.
  EXPECT_EQ(orlo::host::render(*orlo::host::driveList({{3, "/dev/sda", "ATA", "M", "7", "F"}}, "/"),
                               "json"),
            "{\n  \"drives\": [\n    {\n      \"index\": 3,\n      \"path\": \"/dev/sda\",\n"
            "      \"protocol\": \"ATA\",\n      \"model_name\": \"M\",\n"
            "      \"serial_number\": \"7\",\n      \"firmware_version\": \"F\"\n    }\n  ]\n}\n");
}

}  // namespace
