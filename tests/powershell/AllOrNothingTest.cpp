#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

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
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const std::string socketPath = (dir / "S/socket").string();
  socketPath.copy(address.sun_path, sizeof address.sun_path - 1);
  const int listener = socket(AF_UNIX, SOCK_STREAM, 0);
  ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  writeBytes(dir / "L/a.txt", "a");
  fs::create_symlink("missing", dir / "L/dangling");

  const std::string unfit =
      "' is neither a file nor a folder and cannot be read into an "
      "archive. Nothing was written.";
  expectRefused({"Compress-Archive", "D", "x.zip", "-Update"},
                "The path '" + (dir / "D/fifo").string() + unfit);
  expectRefused({"Compress-Archive", "S/*", "x.zip", "-Update"}, "The path '" + socketPath + unfit);
  expectRefused({"Compress-Archive", "L", "x.zip", "-Update"},
                "The path '" + (dir / "L/dangling").string() +
                    "' cannot be read (No such file or directory). Nothing was written.");
  close(listener);
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
  before = readBytes(dir / "x.zip");
  before[before.size() - 6] = '\x7f';
  writeBytes(dir / "x.zip", before);
  expectRefused({"Compress-Archive", "a.txt", "x.zip", "-Update"},
                "The archive file x.zip is not a valid zip archive (Zip archive inconsistent). "
                "It was left as it was.");
}

}  // namespace
