#include "ProviderFixture.h"

namespace {

class Sources : public ProviderTest {
 protected:
  void SetUp() override {
    ProviderTest::SetUp();
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
  }
};

TEST_F(Sources, NamesEntriesLikeTheCmdlet) {
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

TEST_F(Sources, MissingOrRepeatedPathsAreErrors) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"top.txt,nothere",
       "The path 'nothere' either does not exist or is not a valid file system path."},
      {"top.txt,D,./top.txt",
       "The input to Path parameter contains a duplicate path './top.txt'. Provide a unique set "
       "of paths as input to Path parameter."},
  };
  for (const auto& [paths, message] : cases) {
    const ProviderRun result = run({"Compress-Archive", paths, "x.zip"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "Compress-Archive : " + message + "\n");
    EXPECT_FALSE(fs::exists(dir / "x.zip"));
  }
}

}  // namespace
