#include <fcntl.h>
#include <signal.h>

#include <chrono>
#include <thread>

#include "ProviderFixture.h"

namespace {

// Ctrl-C, a plain kill and a hang-up in the middle of writing: the run ends with
// status 1 and says so, the archive is as it was and nothing is left beside it.
TEST_F(ProviderTest, ASignalEndsTheRunAndRemovesItsTemporaryFile) {
  writeBytes(dir / "large.bin", std::string(96u << 20, 'x'));
  writeZip(dir / "report.zip", {{"summary.txt", "summary"}});
  const std::string archive = readFile(dir / "report.zip");
  const auto before = filesInDir();
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    SCOPED_TRACE(strsignal(signal));
    std::FILE* err = std::tmpfile();
    const int quiet = open("/dev/null", O_WRONLY);
    const pid_t child = startProvider({"Compress-Archive", "large.bin", "report.zip", "-Update",
                                       "-CompressionLevel", "NoCompression"},
                                      dir, quiet, fileno(err));
    for (int wait = 0; wait < 2000 && filesInDir() == before; ++wait) {
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    ASSERT_NE(filesInDir(), before) << "no temporary file appeared";
    kill(child, signal);
    int status = -1;
    waitpid(child, &status, 0);
    close(quiet);
    const std::string message = readAll(err);

    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 1);
    EXPECT_EQ(message, "Compress-Archive : Stopped by a signal (" + std::string(strsignal(signal)) +
                           "). The archive file report.zip was left as it was.\n");
    EXPECT_EQ(filesInDir(), before);
    EXPECT_EQ(readFile(dir / "report.zip"), archive);
  }
}

}  // namespace
