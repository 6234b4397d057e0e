// The Prometheus text of drives' health, and the file that node_exporter reads it from.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

#include "host/ExitCode.h"
#include "host/FleetMetrics.h"
#include "host/MetricsFile.h"
#include "host/PrometheusText.h"
#include "orlo/core/OwnStatuses.h"
#include "support/ExpectedText.h"
#include "support/ScratchDirectory.h"

namespace {

using orlo::features::health::HealthFacts;
using orlo::host::DriveHealth;

std::vector<std::string> namesIn(const std::filesystem::path& directory) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(directory)) {
    names.push_back(entry.path().filename().string());
  }
  return names;
}

TEST(PrometheusText, FamiliesGroupedWithExactValuesAndEscapedLabels) {
  HealthFacts nvme;
  nvme.protocol = "NVMe";
  nvme.reportsHealthy = false;
  nvme.temperatureCelsius = -3;
  nvme.powerOnHours = std::numeric_limits<uint64_t>::max();
  nvme.percentageUsed = 120;
  nvme.mediaErrors = "340282366920938463463374607431768211455";
  nvme.unsafeShutdowns = "17";
  nvme.availableSparePercent = 9;
  nvme.availableSpareThresholdPercent = 10;
  nvme.criticalWarnings = {{"Available Spare Below Threshold", true}, {"Temperature", false}};
  HealthFacts ata;
  ata.protocol = "ATA";
  ata.powerOnHours = 5231;
  ata.percentageUsed = 7;
  ata.mediaErrors = "0";
  const std::vector<DriveHealth> drives = {
      {"/dev/nvme0", "NVMe", "Tamsel T2", "TT2A", "T2F1", nvme},
      {"img/a\\b\"c", "ATA", "Corvid\nS300", "CV\"S3", "CV1", ata},
      {"/dev/sdb", "ATA", "", "Z9", "", std::nullopt},
  };
  // Labels escape backslash, quotation mark and line feed; the 128-bit counter and the
  // power-on seconds past 64 bits stay exact.
  EXPECT_EQ(orlo::host::prometheusText(drives),
            orlo::testing::testData("metrics/three-drives.prom"));
}

// Every drive that the kernel lists is there, in its order, each that cannot be opened
// with orlo_drive_up 0 and what sysfs says of it; none found is a failure that says
// where orlo looked.
TEST(FleetMetrics, ListsEveryDriveFoundAndFailsWithNone) {
  const orlo::testing::ScratchDirectory sys;
  orlo::devices::DriveOptions options;
  options.sysRoot = sys.path();
  const plugin::cli::ParsedCommand everyDrive;
  const auto none = orlo::host::writeMetrics(everyDrive, options, "-file");
  EXPECT_EQ(orlo::host::exitCodeFor(*none), orlo::host::ExitCode::commandFailed);
  EXPECT_NE(none->value.find(sys.path().string()), std::string::npos) << none->value;

  for (const char* name : {"nvme98", "nvme97"}) {
    const std::filesystem::path controller = sys.path() / "class/nvme" / name;
    orlo::testing::writeFile(controller / "model", "Tamsel T2\n");
    orlo::testing::writeFile(controller / "serial", std::string("S-") + name + "\n");
    orlo::testing::writeFile(controller / "firmware_rev", "T2F1\n");
  }
  const auto found = orlo::host::writeMetrics(everyDrive, options, "-file");
  EXPECT_EQ(orlo::host::exitCodeFor(*found), orlo::host::ExitCode::success);
  const std::string text = found->toText(0);
  const std::string up97 = "orlo_drive_up{device=\"/dev/nvme97\",serial=\"S-nvme97\"} 0\n";
  const std::string up98 = "orlo_drive_up{device=\"/dev/nvme98\",serial=\"S-nvme98\"} 0\n";
  EXPECT_NE(text.find(up97 + up98), std::string::npos) << text;
  EXPECT_NE(text.find("orlo_drive_info{device=\"/dev/nvme98\",serial=\"S-nvme98\",model=\"Tamsel "
                      "T2\",firmware=\"T2F1\",protocol=\"NVMe\"} 1\n"),
            std::string::npos)
      << text;
}

TEST(MetricsFile, ReplacesTheFileWholeReadableByAllAndLeavesNothingBeside) {
  const orlo::testing::ScratchDirectory directory;
  const std::string path = directory / "orlo.prom";
  const mode_t umaskWas = umask(077);
  ASSERT_TRUE(orlo::core::succeeded(orlo::host::writeFileAtomically(path, "old\n")));
  ASSERT_TRUE(orlo::core::succeeded(orlo::host::writeFileAtomically(path, "new\n")));
  umask(umaskWas);
  EXPECT_EQ(orlo::testing::readFile(path), "new\n");
  struct stat written {};
  ASSERT_EQ(stat(path.c_str(), &written), 0);
  EXPECT_EQ(written.st_mode & 07777, 0644u);
  EXPECT_EQ(namesIn(directory.path()), std::vector<std::string>{"orlo.prom"});
}

TEST(MetricsFile, RefusesADirectoryAndAMissingFolderLeavingNothing) {
  const orlo::testing::ScratchDirectory directory;
  const orlo::core::Status onDirectory =
      orlo::host::writeFileAtomically(directory.path().string(), "x\n");
  EXPECT_EQ(onDirectory.message(),
            directory.path().string() + " is a directory, not a regular file.");
  const std::string missing = directory / "gone/orlo.prom";
  const orlo::core::Status inMissing = orlo::host::writeFileAtomically(missing, "x\n");
  EXPECT_EQ(inMissing, orlo::core::fileNotWritten(missing, "", ""));
  EXPECT_EQ(inMissing.message(), "Cannot write " + missing +
                                     ": could not create a temporary file beside it (No such "
                                     "file or directory).");
  EXPECT_TRUE(namesIn(directory.path()).empty());
}

// A writer killed by SIGTERM at any moment leaves the old file or the new one, and no
// temporary file.
TEST(MetricsFile, ASignalLeavesNoTemporaryFile) {
  const orlo::testing::ScratchDirectory directory;
  const std::string path = directory / "orlo.prom";
  const std::string text(1 << 20, '#');
  for (int round = 0; round < 20; ++round) {
    const pid_t writer = fork();
    ASSERT_GE(writer, 0);
    if (writer == 0) {
      for (;;) orlo::host::writeFileAtomically(path, text);
    }
    usleep(2000 + 1500 * round);
    kill(writer, SIGTERM);
    int status = 0;
    waitpid(writer, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
    const std::vector<std::string> names = namesIn(directory.path());
    ASSERT_LE(names.size(), 1u) << "round " << round << ": " << names.back();
    if (!names.empty()) {
      EXPECT_EQ(orlo::testing::readFile(path), text);
    }
  }
}

}  // namespace
