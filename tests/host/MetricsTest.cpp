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
  const std::string nvmeLabels = R"(device="/dev/nvme0",serial="TT2A")";
  const std::string ataLabels = R"(device="img/a\\b\"c",serial="CV\"S3")";
  const std::string unread = R"(device="/dev/sdb",serial="Z9")";
  EXPECT_EQ(orlo::host::prometheusText(drives),
            "# HELP orlo_drive_up Whether orlo read the drive's health (1) or could not (0).\n"
            "# TYPE orlo_drive_up gauge\n"
            "orlo_drive_up{" +
                nvmeLabels +
                "} 1\n"
                "orlo_drive_up{" +
                ataLabels +
                "} 1\n"
                "orlo_drive_up{" +
                unread +
                "} 0\n"
                "# HELP orlo_drive_info The drive's model, firmware and protocol; always 1.\n"
                "# TYPE orlo_drive_info gauge\n"
                "orlo_drive_info{" +
                nvmeLabels +
                R"(,model="Tamsel T2",firmware="T2F1",protocol="NVMe"} 1)"
                "\n"
                "orlo_drive_info{" +
                ataLabels +
                R"(,model="Corvid\nS300",firmware="CV1",protocol="ATA"} 1)"
                "\n"
                "orlo_drive_info{" +
                unread +
                R"(,model="",firmware="",protocol="ATA"} 1)"
                "\n"
                "# HELP orlo_drive_healthy Whether the drive reports itself healthy (1) or a "
                "failure or critical warning (0).\n"
                "# TYPE orlo_drive_healthy gauge\n"
                "orlo_drive_healthy{" +
                nvmeLabels +
                "} 0\n"
                "orlo_drive_healthy{" +
                ataLabels +
                "} 1\n"
                "# HELP orlo_drive_temperature_celsius The drive's temperature.\n"
                "# TYPE orlo_drive_temperature_celsius gauge\n"
                "orlo_drive_temperature_celsius{" +
                nvmeLabels +
                "} -3\n"
                "# HELP orlo_drive_power_on_seconds_total The time the drive has been powered on.\n"
                "# TYPE orlo_drive_power_on_seconds_total counter\n"
                "orlo_drive_power_on_seconds_total{" +
                nvmeLabels +
                "} 66408278665354385814000\n"
                "orlo_drive_power_on_seconds_total{" +
                ataLabels +
                "} 18831600\n"
                "# HELP orlo_drive_life_used_ratio The part of the drive's rated life used "
                "(Percentage Used / 100); can exceed 1.\n"
                "# TYPE orlo_drive_life_used_ratio gauge\n"
                "orlo_drive_life_used_ratio{" +
                nvmeLabels +
                "} 1.2\n"
                "orlo_drive_life_used_ratio{" +
                ataLabels +
                "} 0.07\n"
                "# HELP orlo_drive_media_errors_total Media and data integrity errors (ATA: "
                "reported uncorrectable errors).\n"
                "# TYPE orlo_drive_media_errors_total counter\n"
                "orlo_drive_media_errors_total{" +
                nvmeLabels +
                "} 340282366920938463463374607431768211455\n"
                "orlo_drive_media_errors_total{" +
                ataLabels +
                "} 0\n"
                "# HELP orlo_drive_unsafe_shutdowns_total Power losses without a shutdown "
                "notification to the drive.\n"
                "# TYPE orlo_drive_unsafe_shutdowns_total counter\n"
                "orlo_drive_unsafe_shutdowns_total{" +
                nvmeLabels +
                "} 17\n"
                "# HELP orlo_drive_available_spare_ratio The spare capacity left, 0 to 1.\n"
                "# TYPE orlo_drive_available_spare_ratio gauge\n"
                "orlo_drive_available_spare_ratio{" +
                nvmeLabels +
                "} 0.09\n"
                "# HELP orlo_drive_available_spare_threshold_ratio The available spare below which "
                "the drive warns, 0 to 1.\n"
                "# TYPE orlo_drive_available_spare_threshold_ratio gauge\n"
                "orlo_drive_available_spare_threshold_ratio{" +
                nvmeLabels +
                "} 0.1\n"
                "# HELP orlo_drive_critical_warning Whether the NVMe critical-warning bit named by "
                "warning is set (1) or not (0).\n"
                "# TYPE orlo_drive_critical_warning gauge\n"
                "orlo_drive_critical_warning{" +
                nvmeLabels +
                R"(,warning="Available Spare Below Threshold"} 1)"
                "\n"
                "orlo_drive_critical_warning{" +
                nvmeLabels +
                R"(,warning="Temperature"} 0)"
                "\n");
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
