#include <sys/stat.h>

#include "ProviderFixture.h"

namespace {

TEST_F(ProviderTest, ZipIsAppendedOnlyToANameWithoutExtension) {
  writeBytes(dir / "a.txt", "a");
  fs::create_directory(dir / "ir.d");
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"report", "report.zip"},
      {"report.ZIP", "report.ZIP"},
      {"ir.d/report", "ir.d/report.zip"},
      {"report.tar", "report.tar"},
      {"report.", "report..zip"}};
  for (const auto& [given, written] : cases) {
    runQuietly({"Compress-Archive", "a.txt", given});
    EXPECT_EQ(namesIn(readArchive(dir / written)), std::set<std::string>{"a.txt"}) << given;
  }
}

TEST_F(ProviderTest, ForceReplacesAReadOnlyArchiveKeepingItsMode) {
  writeBytes(dir / "a.txt", "a");
  writeZip(dir / "x.zip", {{"old.txt", "old"}});
  chmod((dir / "x.zip").c_str(), 0444);
  runQuietly({"Compress-Archive", "a.txt", "x", "-Force"});
  EXPECT_EQ(namesIn(readArchive(dir / "x.zip")), std::set<std::string>{"a.txt"});
  EXPECT_EQ(fs::status(dir / "x.zip").permissions(), fs::perms(0444));
}

}  // namespace
