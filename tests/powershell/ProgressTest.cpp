#include <chrono>

#include "ProviderFixture.h"
#include "tools/powershell/ArchiveUpdater.h"

namespace {

using namespace orlo::tools::powershell;

// The percentages of a progress line, in the order shown; the file is closed.
std::vector<int> percentagesIn(std::FILE* line) {
  const std::string text = readAll(line);
  std::vector<int> shown;
  for (std::size_t at = text.find('%'); at != std::string::npos; at = text.find('%', at + 1)) {
    shown.push_back(std::stoi(text.substr(at - 3, 3)));
  }
  return shown;
}

TEST_F(ProviderTest, ProgressFollowsTheBytesNotTheEntries) {
  // Counted by entries, the line would stand at 80% until the large file was done. The
  // old entries end inside a block: their copy goes both direct and through the cache.
  std::map<std::string, std::string> old;
  for (const char* name : {"a", "b", "c", "d"}) {
    for (unsigned value = name[0]; old[name].size() < 9000;) {
      value = value * 1103515245u + 12345u;
      old[name].push_back(static_cast<char>(value >> 16));
    }
  }
  writeZip(dir / "x.zip", old);
  std::string text;
  for (unsigned line = 0; text.size() < (6u << 20); ++line) {
    text += "line " + std::to_string(line * 7919 % 100003) + "\n";
  }
  writeBytes(dir / "big.txt", text);
  ArchiveTarget target{"x.zip", dir / "x.zip", true};
  CompressArchiveRequest request;
  request.update = true;
  const std::vector<PlannedEntry> entries{{"big.txt", dir / "big.txt", 0, text.size()}};

  std::FILE* line = std::tmpfile();
  {
    ProgressLine progress("x.zip", line, std::chrono::milliseconds(0));
    ASSERT_FALSE(ArchiveUpdater(target, request, progress).write(entries));
  }
  const auto after = readArchive(dir / "x.zip");
  for (const auto& [name, data] : old) EXPECT_TRUE(after.at(name).data == data) << name;
  EXPECT_TRUE(after.at("big.txt").data == text);
  const std::vector<int> shown = percentagesIn(line);
  ASSERT_GE(shown.size(), 20u);
  EXPECT_LE(shown.front(), 5);
  EXPECT_GE(shown.back(), 95);
  for (std::size_t i = 1; i < shown.size(); ++i) {
    EXPECT_GT(shown[i], shown[i - 1]);
    EXPECT_LE(shown[i] - shown[i - 1], 5) << "after " << shown[i - 1] << "%";
  }
}

}  // namespace
