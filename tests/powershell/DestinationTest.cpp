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

// A name as long as the folder allows leaves no room for a suffix: the
// temporary file must not be named after it.
TEST_F(ProviderTest, UpdatesAnArchiveWhoseNameIsAsLongAsAllowed) {
  writeBytes(dir / "a.txt", "a");
  for (const std::size_t length : {249u, 255u}) {
    const std::string name = std::string(length - 4, 'r') + ".zip";
    writeZip(dir / "short.zip", {{"old.txt", "old"}});
    fs::rename(dir / "short.zip", dir / name);
    runQuietly({"Compress-Archive", "a.txt", name, "-Update"});
    EXPECT_EQ(namesIn(readArchive(dir / name)), (std::set<std::string>{"old.txt", "a.txt"}))
        << length;
  }
}

// Root may write another user's archive as the file system lets it; the new
// archive is still theirs, with its mode.
TEST_F(ProviderTest, RootUpdatesAnotherUsersArchiveKeepingOwnerGroupAndMode) {
  if (geteuid() != 0) GTEST_SKIP() << "needs root";
  writeBytes(dir / "a.txt", "a");
  for (const mode_t mode : {0644, 0664, 0666, 0600}) {
    SCOPED_TRACE(mode);
    writeZip(dir / "theirs.zip", {{"old.txt", "old"}});
    ASSERT_EQ(chown((dir / "theirs.zip").c_str(), 65534, 65534), 0);
    ASSERT_EQ(chmod((dir / "theirs.zip").c_str(), mode), 0);
    runQuietly({"Compress-Archive", "a.txt", "theirs.zip", "-Update"});
    struct stat status {};
    ASSERT_EQ(stat((dir / "theirs.zip").c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 65534u);
    EXPECT_EQ(status.st_gid, 65534u);
    EXPECT_EQ(status.st_mode & 07777, mode);
    EXPECT_EQ(namesIn(readArchive(dir / "theirs.zip")),
              (std::set<std::string>{"old.txt", "a.txt"}));
    fs::remove(dir / "theirs.zip");
  }
}

}  // namespace
