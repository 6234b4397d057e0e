#include <sys/stat.h>

#include "ProviderFixture.h"

namespace {

// The folder as it stands: every path under it with its kind, mode and contents.
std::map<std::string, std::string> snapshot(const fs::path& dir) {
  std::map<std::string, std::string> entries;
  for (const auto& entry : fs::recursive_directory_iterator(dir)) {
    const auto status = entry.symlink_status();
    entries[entry.path()] = std::to_string(static_cast<int>(status.type())) + " " +
                            std::to_string(static_cast<int>(status.permissions())) + " " +
                            (fs::is_regular_file(status) ? readFile(entry.path()) : "");
  }
  return entries;
}

// Each case of the data file is a line "$ <words>" and the standard error it must
// give; $DIR stands for the folder in which the provider runs. Every refused command
// exits with 1, prints nothing else and leaves the folder as it was.
TEST_F(ProviderTest, RefusalsNameTheirReasonAndLeaveEverythingAsItWas) {
  writeBytes(dir / "a.txt", "a");
  writeZip(dir / "x.zip", {{"old.txt", "old"}});
  writeZip(dir / "ro.zip", {{"old.txt", "old"}});
  chmod((dir / "ro.zip").c_str(), 0444);
  for (const char* folder : {"D", "S", "L"}) writeBytes(dir / folder / "a.txt", "a");
  mkfifo((dir / "D/fifo").c_str(), 0644);
  mkfifo((dir / "S/fifo").c_str(), 0644);
  mkfifo((dir / "pipe.zip").c_str(), 0644);
  fs::create_symlink("missing", dir / "L/dangling");
  fs::create_directories(dir / "E/.only-hidden");
  int hostile = 0;
  for (const char* name : {"../evil.txt", "/etc/evil", "a/../../evil", "..\\evil", "C:/evil"}) {
    writeZip(dir / ("hostile" + std::to_string(++hostile) + ".zip"),
             {{"ok.txt", "ok"}, {name, "evil"}});
  }
  // The end record gives where the central directory starts: point it past the end.
  std::string damaged = readFile(dir / "x.zip");
  damaged[damaged.size() - 6] = '\x7f';
  writeBytes(dir / "damaged.zip", damaged);
  writeBytes(dir / "text.zip", "not a zip");
  writeBytes(dir / "empty.zip", "");
  const auto before = snapshot(dir);

  std::ifstream cases(ORLO_TEST_DATA_DIR "/powershell/refusals.txt");
  std::string words;
  std::string message;
  int count = 0;
  while (std::getline(cases, words) && std::getline(cases, message)) {
    SCOPED_TRACE(words);
    ASSERT_EQ(words.rfind("$ ", 0), 0u);
    std::istringstream split(words.substr(2));
    const ProviderRun result = run({std::istream_iterator<std::string>(split), {}});
    for (auto at = message.find("$DIR"); at != std::string::npos; at = message.find("$DIR")) {
      message.replace(at, 4, dir.string());
    }
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, message + "\n");
    EXPECT_EQ(snapshot(dir), before);
    ++count;
  }
  EXPECT_EQ(count, 29);
}

}  // namespace
