#include <fcntl.h>
#include <signal.h>

#include <chrono>
#include <thread>

#include "ProviderFixture.h"

namespace {

// Files in `dir` that `before` did not hold.
std::set<std::string> newFiles(const fs::path& dir, const std::set<std::string>& before) {
  std::set<std::string> added;
  for (const auto& entry : fs::directory_iterator(dir)) {
    if (before.count(entry.path().filename()) == 0) added.insert(entry.path().filename());
  }
  return added;
}

TEST_F(ProviderTest, UpdatesAtTheSameTimeAllLand) {
  constexpr int kRuns = 8;
  writeZip(dir / "report.zip", {{"summary.txt", "summary"}});
  std::map<std::string, ArchivedEntry> expected = readArchive(dir / "report.zip");
  for (int run = 0; run < kRuns; ++run) {
    const std::string name = "part" + std::to_string(run) + ".bin";
    std::string data(2u << 20, '\0');
    for (std::size_t at = 0; at < data.size(); ++at) {
      data[at] = static_cast<char>((at * 2654435761u + static_cast<unsigned>(run)) >> 13);
    }
    writeBytes(dir / name, data);
    expected[name].data = data;
  }
  const int quiet = open("/dev/null", O_WRONLY);
  std::vector<pid_t> children;
  for (int run = 0; run < kRuns; ++run) {
    children.push_back(startProvider(
        {"Compress-Archive", "part" + std::to_string(run) + ".bin", "report.zip", "-Update"}, dir,
        quiet, quiet));
  }
  for (const pid_t child : children) {
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  }
  close(quiet);
  const auto entries = readArchive(dir / "report.zip");
  ASSERT_EQ(namesIn(entries), namesIn(expected));
  for (const auto& [name, entry] : expected) EXPECT_EQ(entries.at(name).data, entry.data) << name;
}

// A killed run leaves its temporary file; the next update of the same archive
// removes it, and leaves alone what a killed run on another archive left.
TEST_F(ProviderTest, TheNextUpdateRemovesWhatAKilledRunLeft) {
  writeBytes(dir / "large.bin", std::string(96u << 20, 'x'));
  writeBytes(dir / "note.txt", "note");
  writeZip(dir / "report.zip", {{"summary.txt", "summary"}});
  writeZip(dir / "other.zip", {{"summary.txt", "summary"}});
  const auto sources = filesInDir();
  const int quiet = open("/dev/null", O_WRONLY);
  std::map<std::string, std::set<std::string>> leftBy;
  for (const char* archive : {"report.zip", "other.zip"}) {
    const auto before = filesInDir();
    const pid_t child = startProvider(
        {"Compress-Archive", "large.bin", archive, "-Update", "-CompressionLevel", "NoCompression"},
        dir, quiet, quiet);
    for (int wait = 0; wait < 2000 && newFiles(dir, before).empty(); ++wait) {
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    leftBy[archive] = newFiles(dir, before);
    ASSERT_EQ(leftBy[archive].size(), 1u) << archive;
  }
  close(quiet);

  runQuietly({"Compress-Archive", "note.txt", "report.zip", "-Update"});
  EXPECT_EQ(newFiles(dir, sources), leftBy["other.zip"]);
  runQuietly({"Compress-Archive", "note.txt", "other.zip", "-Update"});
  EXPECT_EQ(newFiles(dir, sources), std::set<std::string>{});
  EXPECT_EQ(namesIn(readArchive(dir / "report.zip")),
            (std::set<std::string>{"summary.txt", "note.txt"}));
}

}  // namespace
