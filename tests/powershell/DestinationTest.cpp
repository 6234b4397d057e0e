#include <sys/stat.h>

#include "ProviderFixture.h"

namespace {

TEST_F(ProviderTest, ZipIsAppendedOnlyToANameWithoutExtension) {
  writeBytes(dir / "a.txt", "a");
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"report", "report.zip"},
      {"report.ZIP", "report.ZIP"},
      {"ir.d/report", "ir.d/report.zip"},
      {"report.tar", "report.tar"},
      {"report.", "report..zip"}};
  fs::create_directory(dir / "ir.d");
  for (const auto& [given, written] : cases) {
    runQuietly({"Compress-Archive", "a.txt", given});
    EXPECT_EQ(namesIn(readArchive(dir / written)), std::set<std::string>{"a.txt"}) << given;
  }
}

TEST_F(ProviderTest, ExistingArchiveNeedsUpdateOrForce) {
  writeBytes(dir / "a.txt", "a");
  makeArchive(dir / "x.zip", {{"old.txt", "old"}});
  const std::string before = readBytes(dir / "x.zip");
  const std::string prefix = "Compress-Archive : ";

  ProviderRun result = run({"Compress-Archive", "a.txt", "x"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(
      result.err,
      prefix +
          "The archive file x.zip already exists. Use the -Update parameter to update the existing "
          "archive file or use the -Force parameter to overwrite the existing "
          "archive file.\n");

  chmod((dir / "x.zip").c_str(), 0444);
  result = run({"Compress-Archive", "a.txt", "x", "-Update"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err, prefix +
                            "The attributes of the archive file x.zip is set to 'ReadOnly' hence "
                            "it cannot be updated. If you intend to "
                            "update the existing archive file, remove the 'ReadOnly' attribute "
                            "on the archive file else use -Force parameter to override and "
                            "create a new archive file.\n");
  EXPECT_EQ(readBytes(dir / "x.zip"), before);

  runQuietly({"Compress-Archive", "a.txt", "x", "-Force"});
  EXPECT_EQ(namesIn(readArchive(dir / "x.zip")), std::set<std::string>{"a.txt"});
  struct stat status {};
  stat((dir / "x.zip").c_str(), &status);
  EXPECT_EQ(status.st_mode & 0777, 0444u);
}

}  // namespace
