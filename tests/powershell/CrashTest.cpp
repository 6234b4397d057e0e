#include <fcntl.h>
#include <signal.h>

#include <chrono>
#include <cstring>
#include <random>
#include <thread>

#include "ProviderFixture.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kParts = 4;
constexpr std::size_t kPartSize = 25u << 20;
constexpr int kTrials = 20;

// Reads every entry through libzip, which checks each CRC; returns the marker's
// contents, or "" when the archive does not hold the parts untouched.
std::string markerOfIntactArchive(const fs::path& path, const std::vector<zip_stat_t>& parts) {
  int error = 0;
  zip_t* archive = zip_open(path.c_str(), ZIP_RDONLY | ZIP_CHECKCONS, &error);
  if (archive == nullptr) return "";
  bool intact = zip_get_num_entries(archive, 0) == kParts + 1;
  for (const zip_stat_t& part : parts) {
    zip_stat_t status;
    intact = intact && zip_stat(archive, part.name, 0, &status) == 0 && status.crc == part.crc &&
             status.size == part.size && readEntry(archive, status.index, 0, nullptr) == part.size;
  }
  const zip_int64_t index = zip_name_locate(archive, "marker.txt", 0);
  std::string marker;
  if (intact && index >= 0) readEntry(archive, index, 0, &marker);
  zip_discard(archive);
  return marker;
}

TEST_F(ProviderTest, KillAtAnyInstantLeavesTheOldOrTheNewArchive) {
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937_64 random(seed);
  std::string data(kPartSize, '\0');
  for (int part = 0; part < kParts; ++part) {
    for (std::size_t at = 0; at < data.size(); at += 8) {
      const std::uint64_t word = random();
      std::memcpy(&data[at], &word, 8);
    }
    writeBytes(dir / ("part" + std::to_string(part) + ".bin"), data);
  }
  runQuietly({"Compress-Archive", "part*.bin", "big.zip", "-CompressionLevel", "NoCompression"});
  const fs::path archivePath = dir / "big.zip";
  int error = 0;
  zip_t* archive = zip_open(archivePath.c_str(), ZIP_RDONLY, &error);
  ASSERT_NE(archive, nullptr);
  // The names of these stats belong to `archive`, open until the end.
  std::vector<zip_stat_t> parts(kParts);
  for (int part = 0; part < kParts; ++part) zip_stat_index(archive, part, 0, &parts[part]);
  const std::vector<std::string> update = {
      "Compress-Archive", "marker.txt", "big.zip", "-Update", "-CompressionLevel", "NoCompression"};

  writeBytes(dir / "marker.txt", "0");
  const auto start = Clock::now();
  runQuietly(update);
  std::chrono::duration<double> duration = Clock::now() - start;
  const auto files = filesInDir();

  const int quiet = open("/dev/null", O_WRONLY);
  std::string current = "0";
  int old = 0;
  int updated = 0;
  for (int trial = 1; trial <= kTrials; ++trial) {
    writeBytes(dir / "marker.txt", std::to_string(trial));
    // One random instant in each slice of the run and a little beyond.
    std::uniform_real_distribution<double> slice(trial - 1, trial);
    const auto delay = duration * 1.3 * slice(random) / kTrials;
    const pid_t child = startProvider(update, dir, quiet, quiet);
    std::this_thread::sleep_for(delay);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);

    const std::string marker = markerOfIntactArchive(archivePath, parts);
    ASSERT_TRUE(marker == current || marker == std::to_string(trial))
        << "trial " << trial << " marker '" << marker << "'";
    (marker == current ? old : updated) += 1;
    // A run that outlasts a late kill shows the machine is slower than measured.
    if (marker == current && delay > duration * 0.9) duration *= 1.3;
    current = marker;
    for (const auto& entry : fs::directory_iterator(dir)) {
      if (files.count(entry.path().filename()) == 0) fs::remove(entry.path());
    }
  }
  close(quiet);
  zip_discard(archive);
  EXPECT_GT(old, 0);
  EXPECT_GT(updated, 0);
}

}  // namespace
