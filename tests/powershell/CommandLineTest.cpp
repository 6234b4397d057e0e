#include "ProviderFixture.h"

namespace {

TEST_F(ProviderTest, BindsParametersAsPowerShellDoes) {
  for (const char* name : {"a.txt", "b.txt", ".c.txt", "[x].txt"}) writeBytes(dir / name, name);
  const std::vector<std::pair<std::vector<std::string>, std::set<std::string>>> cases = {
      {{"compress-archive", "-pa", "a.txt,b.txt", "-dest", "x.zip"}, {"a.txt", "b.txt"}},
      {{"COMPRESS-ARCHIVE", "?.txt", "x.zip", "-c", "nocompression"}, {"a.txt", "b.txt"}},
      {{"Compress-Archive", "-DestinationPath:x.zip", "-LiteralPath:[x].txt", "-Update:$true"},
       {"[x].txt"}},
      {{"Compress-Archive", "-Destination", "x.zip", "-Path", "[ab].txt,.c.txt"},
       {"a.txt", "b.txt", ".c.txt"}},
  };
  for (const auto& [words, names] : cases) {
    runQuietly(words);
    EXPECT_EQ(namesIn(readArchive(dir / "x.zip")), names) << words[1];
    fs::remove(dir / "x.zip");
  }
}

}  // namespace
