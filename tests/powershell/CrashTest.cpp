#include <fcntl.h>
#include <signal.h>

#include <chrono>
#include <random>
#include <thread>

#include "ProviderFixture.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kParts = 4;
constexpr std::size_t kPartSize = 25u << 20;
constexpr int kTrials = 20;

std::string partName(int part) {
  return "part" + std::to_string(part) + ".bin";
}

// The marker's contents when the archive opens with its consistency check and
// reads back whole through libzip, which checks each CRC; else "".
std::string markerOfIntactArchive(const fs::path& path) {
  int error = 0;
  zip_t* archive = zip_open(path.c_str(), ZIP_RDONLY | ZIP_CHECKCONS, &error);
  if (archive == nullptr) return "";
  bool intact = zip_get_num_entries(archive, 0) == kParts + 1;
  for (int part = 0; intact && part < kParts; ++part) {
    const zip_int64_t index = zip_name_locate(archive, partName(part).c_str(), 0);
    intact = index >= 0 && readEntry(archive, index, 0, nullptr) == kPartSize;
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
  for (int part = 0; part < kParts; ++part) {
    writeBytes(dir / partName(part), std::string(kPartSize, static_cast<char>('a' + part)));
  }
  runQuietly({"Compress-Archive", "part*.bin", "big.zip", "-CompressionLevel", "NoCompression"});
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

    const std::string marker = markerOfIntactArchive(dir / "big.zip");
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
  EXPECT_GT(old, 0);
  EXPECT_GT(updated, 0);
}

}  // namespace
