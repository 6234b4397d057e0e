#include <sys/stat.h>

#include "ProviderFixture.h"

namespace {

class AllOrNothing : public ProviderTest {
 protected:
  void SetUp() override {
    ProviderTest::SetUp();
    makeArchive(dir / "x.zip", {{"old.txt", "old"}});
    before = readBytes(dir / "x.zip");
  }

  // The command fails with `message` and leaves the folder as it was.
  void expectRefused(const std::vector<std::string>& words, const std::string& message) {
    const auto files = filesInDir();
    const ProviderRun result = run(words);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "Compress-Archive : " + message + "\n");
    EXPECT_EQ(readBytes(dir / "x.zip"), before);
    EXPECT_EQ(filesInDir(), files);
  }

  std::string before;
};

TEST_F(AllOrNothing, AnUnreadableSourceWritesNothing) {
  writeBytes(dir / "D/a.txt", "a");
  mkfifo((dir / "D/fifo").c_str(), 0644);
  writeBytes(dir / "S/a.txt", "a");
  mkfifo((dir / "S/fifo").c_str(), 0644);
  writeBytes(dir / "L/a.txt", "a");
  fs::create_symlink("missing", dir / "L/dangling");

  const std::string unfit =
      "' is neither a file nor a folder and cannot be read into an "
      "archive. Nothing was written.";
  expectRefused({"Compress-Archive", "D", "x.zip", "-Update"},
                "The path '" + (dir / "D/fifo").string() + unfit);
  expectRefused({"Compress-Archive", "S/*", "x.zip", "-Update"},
                "The path '" + (dir / "S/fifo").string() + unfit);
  expectRefused({"Compress-Archive", "L", "x.zip", "-Update"},
                "The path '" + (dir / "L/dangling").string() +
                    "' cannot be read (No such file or directory). Nothing was written.");
}

TEST_F(AllOrNothing, NothingToAddIsAnError) {
  fs::create_directories(dir / "E/.only-hidden");
  for (const char* paths : {"E", "E/*", "nomatch*"}) {
    expectRefused({"Compress-Archive", paths, "x.zip", "-Update"},
                  "The paths name no file and no empty folder, so there is nothing to add to the "
                  "archive file x.zip. Nothing was written.");
  }
}

TEST_F(AllOrNothing, RefusesDamagedOrHostileArchives) {
  writeBytes(dir / "a.txt", "a");
  for (const char* name : {"../evil.txt", "/etc/evil", "a/../../evil", "..\\evil", "C:/evil"}) {
    makeArchive(dir / "x.zip", {{"ok.txt", "ok"}, {name, "evil"}});
    before = readBytes(dir / "x.zip");
    expectRefused({"Compress-Archive", "a.txt", "x.zip", "-Update"},
                  "The archive file x.zip holds an entry named '" + std::string(name) +
                      "', which leaves the folder the archive is extracted to. It was left as it "
                      "was.");
  }
  // The end record gives where the central directory starts: point it past the end.
  makeArchive(dir / "x.zip", {{"ok.txt", "ok"}});
  std::string damaged = readBytes(dir / "x.zip");
  damaged[damaged.size() - 6] = '\x7f';
  const std::vector<std::pair<std::string, std::string>> cases = {
      {damaged, "Zip archive inconsistent"},
      {"not a zip", "Not a zip archive"},
      {"", "Not a zip archive"}};
  for (const auto& [content, reason] : cases) {
    writeBytes(dir / "x.zip", before = content);
    expectRefused({"Compress-Archive", "a.txt", "x.zip", "-Update"},
                  "The archive file x.zip is not a valid zip archive (" + reason +
                      "). It was left as it was.");
  }
}

}  // namespace
