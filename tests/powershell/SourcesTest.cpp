#include "ProviderFixture.h"

namespace {

TEST_F(ProviderTest, NamesEntriesLikeTheCmdlet) {
  writeBytes(dir / "D/sub/f.txt", "f");
  writeBytes(dir / "D/.hidden", "h");
  writeBytes(dir / "D/.hiddendir/g.txt", "g");
  writeBytes(dir / "D/onlyhidden/.z", "z");
  fs::create_directories(dir / "D/empty/");
  writeBytes(dir / "E/e.txt", "e");
  writeBytes(dir / "top.txt", "top");
  writeBytes(dir / ".secret", "s");
  fs::create_directory_symlink("../E", dir / "D/link-dir");
  fs::create_symlink("../top.txt", dir / "D/link-file");

  const std::vector<std::pair<std::string, std::set<std::string>>> cases = {
      {"D", {"D/empty/", "D/link-file", "D/onlyhidden/", "D/sub/f.txt"}},
      {"D/*", {"empty/", "link-file", "onlyhidden/", "sub/f.txt"}},
      {"./D/sub/", {"sub/f.txt"}},
      {"top.txt,.secret,E", {"top.txt", ".secret", "E/e.txt"}},
  };
  for (const auto& [paths, names] : cases) {
    runQuietly({"Compress-Archive", "-Path", paths, "-DestinationPath", "x.zip"});
    const auto entries = readArchive(dir / "x.zip");
    EXPECT_EQ(namesIn(entries), names) << paths;
    for (const auto& [name, entry] : entries) {
      const bool folder = name.back() == '/';
      EXPECT_EQ(entry.method, folder ? ZIP_CM_STORE : ZIP_CM_DEFLATE) << name;
      EXPECT_EQ(entry.raw.empty(), folder) << name;
    }
    if (entries.count("link-file") != 0) {
      EXPECT_EQ(entries.at("link-file").data, "top");
    }
    fs::remove(dir / "x.zip");
  }
}

}  // namespace
