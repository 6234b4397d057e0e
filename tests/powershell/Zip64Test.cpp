#include <unistd.h>

#include "ProviderFixture.h"
#include "tools/powershell/BlockDeflater.h"
#include "tools/powershell/ParallelDeflateSource.h"

namespace {

using orlo::tools::powershell::BlockDeflater;
using orlo::tools::powershell::DeflateWorkers;
using orlo::tools::powershell::ParallelDeflateSource;
using orlo::tools::powershell::ProgressLine;

constexpr zip_uint64_t kBlock = 128 << 10;

TEST_F(ProviderTest, TheBoundOfTheBlockDeflateHoldsForDataThatDoesNotCompress) {
  std::string noise;
  for (unsigned value = 99; noise.size() < (3 * kBlock) + 17;) {
    value = value * 1103515245u + 12345u;
    noise.push_back(static_cast<char>(value >> 16));
  }
  writeBytes(dir / "noise.bin", noise);
  for (const std::string level : {"Optimal", "Fastest"}) {
    runQuietly({"Compress-Archive", "noise.bin", "x.zip", "-Force", "-CompressionLevel", level});
    const zip_uint64_t stored = readArchive(dir / "x.zip").at("noise.bin").raw.size();
    const zip_uint64_t bound =
        BlockDeflater::ofThisThread().bound(noise.size(), kBlock, level == "Optimal" ? 6 : 1);
    EXPECT_GT(stored, noise.size()) << level;
    EXPECT_LE(stored, bound) << level;
    EXPECT_LT(bound, noise.size() + noise.size() / 1000 + 64) << level;
  }
}

TEST_F(ProviderTest, LibzipLearnsTheSizeOnlyAtTheEndWhenTheEntryCouldPass4GiB) {
  // Sparse files: the decision takes only the size, before any data is read.
  DeflateWorkers workers;
  ProgressLine progress("x.zip", nullptr, std::chrono::milliseconds(0));
  const std::pair<off_t, bool> cases[] = {
      {4'000'000'000, false},
      {4'293'600'000, true},  // under zlib's bound for one stream, past the blocks' bound
      {5'000'000'000, true}};
  for (const auto& [size, hidden] : cases) {
    writeBytes(dir / "big.bin", "");
    ASSERT_EQ(truncate((dir / "big.bin").c_str(), size), 0);
    zip_source_t* source =
        ParallelDeflateSource::create(dir / "big.bin", 6, workers, progress, nullptr);
    ASSERT_NE(source, nullptr);
    zip_stat_t status;
    ASSERT_EQ(zip_source_stat(source, &status), 0);
    EXPECT_EQ((status.valid & ZIP_STAT_SIZE) == 0, hidden) << size;
    zip_source_free(source);
  }
}

}  // namespace
