#include "host/ArchiveProvider.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <vector>

#include "orlo/core/Logging.h"
#include "orlo/core/OwnStatuses.h"

namespace orlo::host {

namespace {

// What is kept of the provider's words: its messages are one or a few lines.
constexpr std::size_t kMessageLimit = 64 * 1024;

std::string readAll(int from) {
  std::string text;
  char buffer[4096];
  for (;;) {
    const ssize_t got = read(from, buffer, sizeof buffer);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;
    text.append(buffer, static_cast<std::size_t>(got));
    if (text.size() > kMessageLimit) text.resize(kMessageLimit);
  }
  while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
  return text;
}

std::string outcome(int status) {
  if (WIFSIGNALED(status)) return "ended by signal " + std::to_string(WTERMSIG(status));
  return "ended with status " + std::to_string(WEXITSTATUS(status));
}

}  // namespace

core::Status compressFolder(const std::filesystem::path& provider,
                            const std::filesystem::path& folder, const std::string& destination,
                            bool force, StopSignals& signals) {
  std::vector<std::string> words = {provider.string(),
                                    "Compress-Archive",
                                    "-Path",
                                    "*",
                                    "-DestinationPath",
                                    std::filesystem::absolute(destination).string()};
  if (force) words.push_back("-Force");
  std::string line;
  for (const auto& word : words) line += (line.empty() ? "" : " ") + word;
  ORLO_LOG(info, "In " << folder.string() << ": " << line);

  int pipe[2];
  if (pipe2(pipe, O_CLOEXEC) != 0) return core::archiverFailed(line, std::strerror(errno));
  std::vector<char*> argv;
  for (auto& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
  posix_spawn_file_actions_adddup2(&actions, pipe[1], STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, pipe[1], STDERR_FILENO);
  pid_t child = 0;
  const int error = signals.spawn(child, argv[0], &actions, argv.data());
  posix_spawn_file_actions_destroy(&actions);
  close(pipe[1]);
  if (error != 0) {
    close(pipe[0]);
    return core::archiverFailed(line, std::strerror(error));
  }
  const std::string said = readAll(pipe[0]);
  close(pipe[0]);
  const int status = signals.wait(child);
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return core::Status::success();
  return core::archiverFailed(line, said.empty() ? outcome(status) : said);
}

}  // namespace orlo::host
