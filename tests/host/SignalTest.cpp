#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <cstring>
#include <filesystem>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "support/ScratchDirectory.h"
#include "support/ZipArchive.h"

extern char** environ;

namespace {

using orlo::testing::readFile;

bool holdsTemporaryFile(const std::filesystem::path& folder) {
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().filename().string().rfind(".~orlo-", 0) == 0) return true;
  }
  return false;
}

// A SIGTERM sent to orlo while its update writes the new archive reaches the provider, which
// removes its temporary file and fails; orlo reports that failure.
TEST(Signals, ATerminatedUpdateLeavesTheArchiveAsItWasAndNothingBesideIt) {
  orlo::testing::ScratchDirectory scratch;
  orlo::testing::ScratchDirectory outputs;
  const std::string archive = scratch / "report.zip";
  const std::string source = scratch / "capture.bin";
  orlo::testing::writeZip(archive, {{"readme.txt", "old"}});
  const std::string before = readFile(archive);
  // Random bytes deflate slowly: the update is still writing when the signal comes.
  std::string bytes(64 << 20, '\0');
  std::mt19937_64 random(20);
  for (std::size_t at = 0; at < bytes.size(); at += 8) {
    const auto word = random();
    std::memcpy(&bytes[at], &word, 8);
  }
  orlo::testing::writeFile(source, bytes);

  const std::string program = std::string(ORLO_STAGE_DIR) + "/bin/orlo";
  std::vector<std::string> words = {program, "update", "-source", source, "-destination", archive};
  std::vector<char*> argv;
  for (auto& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 1, (outputs / "out").c_str(), O_WRONLY | O_CREAT,
                                   0600);
  posix_spawn_file_actions_addopen(&actions, 2, (outputs / "err").c_str(), O_WRONLY | O_CREAT,
                                   0600);
  pid_t pid = 0;
  ASSERT_EQ(posix_spawn(&pid, program.c_str(), &actions, nullptr, argv.data(), environ), 0);
  posix_spawn_file_actions_destroy(&actions);

  int status = 0;
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  bool running = true;
  while (running && !holdsTemporaryFile(scratch.path()) &&
         std::chrono::steady_clock::now() < deadline) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
    running = waitpid(pid, &status, WNOHANG) == 0;
  }
  ASSERT_TRUE(running) << "the update ended before its temporary file was seen";
  const bool seen = holdsTemporaryFile(scratch.path());
  kill(pid, SIGTERM);
  ASSERT_EQ(waitpid(pid, &status, 0), pid);
  ASSERT_TRUE(seen) << "no temporary file within a minute";
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 1) << status;
  const std::string failed = "Failed to update destination file with " + source + "\n";
  EXPECT_EQ(readFile(outputs / "out"), failed + "Result: " + failed);
  EXPECT_EQ(readFile(archive), before);
  EXPECT_FALSE(holdsTemporaryFile(scratch.path()));
}

}  // namespace
