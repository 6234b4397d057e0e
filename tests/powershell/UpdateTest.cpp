#include <fcntl.h>
#include <sys/stat.h>

#include <ctime>

#include "ProviderFixture.h"

namespace {

// Text that zlib packs tighter at level 6 than at level 1.
std::string varied() {
  std::string text;
  for (int line = 0; line < 4000; ++line)
    text += "line " + std::to_string(line * 7919 % 1000) + "\n";
  return text;
}

TEST_F(ProviderTest, ReplacesWithoutRegardToCaseAndCopiesTheRestAsItIs) {
  writeZip(dir / "x.zip", {{"README.TXT", "old"}, {"f/A.TXT", "old"}, {"Dir/Keep.txt", varied()}});
  const auto before = readArchive(dir / "x.zip");
  writeBytes(dir / "readme.txt", "new");
  // Names that differ only in case are both stored, and both replace "f/A.TXT".
  writeBytes(dir / "f/A.txt", "upper");
  writeBytes(dir / "f/a.txt", "lower");
  runQuietly(
      {"Compress-Archive", "readme.txt,f", "x.zip", "-Update", "-CompressionLevel", "Fastest"});

  const auto after = readArchive(dir / "x.zip");
  EXPECT_EQ(namesIn(after),
            (std::set<std::string>{"Dir/Keep.txt", "readme.txt", "f/A.txt", "f/a.txt"}));
  EXPECT_EQ(after.at("readme.txt").data, "new");
  EXPECT_EQ(after.at("f/A.txt").data, "upper");
  EXPECT_EQ(after.at("f/a.txt").data, "lower");
  // Deflated at level 6 before: a recompression at level 1 would change these bytes.
  EXPECT_EQ(after.at("Dir/Keep.txt").raw, before.at("Dir/Keep.txt").raw);
}

TEST_F(ProviderTest, CompressionLevelChoosesTheMethod) {
  writeBytes(dir / "t.txt", varied());
  std::map<std::string, ArchivedEntry> entries;
  for (const std::string level : {"Optimal", "Fastest", "NoCompression"}) {
    runQuietly({"Compress-Archive", "t.txt", level + ".zip", "-CompressionLevel", level});
    entries[level] = readArchive(dir / (level + ".zip")).at("t.txt");
    EXPECT_EQ(entries[level].data, varied());
  }
  EXPECT_EQ(entries["NoCompression"].method, ZIP_CM_STORE);
  EXPECT_EQ(entries["Fastest"].method, ZIP_CM_DEFLATE);
  EXPECT_LT(entries["Optimal"].raw.size(), entries["Fastest"].raw.size());
}

TEST_F(ProviderTest, LargeFilesDeflateInBlocksThatReadAsOneStream) {
  // 16 KiB of noise repeated: a block deflated without the 32 KiB before it as its
  // dictionary makes the data wrong or the entry ~16 KiB larger per block.
  std::string noise;
  for (unsigned value = 12345; noise.size() < (16u << 10);) {
    value = value * 1103515245u + 12345u;
    noise.push_back(static_cast<char>(value >> 16));
  }
  for (const std::size_t size : {std::size_t{4} << 17, (std::size_t{4} << 17) + 1}) {
    std::string data;
    while (data.size() < size) data += noise;
    data.resize(size);
    writeBytes(dir / "big.bin", data);
    for (const std::string level : {"Optimal", "Fastest"}) {
      runQuietly({"Compress-Archive", "big.bin", "x.zip", "-Force", "-CompressionLevel", level});
      const ArchivedEntry entry = readArchive(dir / "x.zip").at("big.bin");
      EXPECT_EQ(entry.method, ZIP_CM_DEFLATE) << size << level;
      EXPECT_TRUE(entry.data == data) << size << level;
      EXPECT_LT(entry.raw.size(), 32u << 10) << size << level;
    }
  }
}

TEST_F(ProviderTest, StoresLocalTimeFrom1980On) {
  // A zone without summer time, away from UTC: a UTC stamp would be three hours off.
  const char* zone = std::getenv("TZ");
  const std::string saved = zone != nullptr ? zone : "";
  setenv("TZ", "ORL-3", 1);
  tzset();
  const std::time_t dosEpoch = 315532800 - 3 * 3600;  // 1980-01-01 00:00 in that zone
  const std::time_t recent = 1623758410;              // 2021-06-15 12:00:10 UTC
  const std::vector<std::pair<std::time_t, std::time_t>> cases = {
      {recent, recent}, {recent + 1, recent}, {174600000, dosEpoch}, {-86400, dosEpoch}};
  for (const auto& [modified, stored] : cases) {
    writeBytes(dir / "t.txt", "t");
    const timespec times[2] = {{modified, 0}, {modified, 0}};
    utimensat(AT_FDCWD, (dir / "t.txt").c_str(), times, 0);
    runQuietly({"Compress-Archive", "t.txt", "x.zip", "-Force"});
    EXPECT_EQ(readArchive(dir / "x.zip").at("t.txt").modified, stored) << modified;
  }
  zone != nullptr ? setenv("TZ", saved.c_str(), 1) : unsetenv("TZ");
  tzset();
}

}  // namespace
