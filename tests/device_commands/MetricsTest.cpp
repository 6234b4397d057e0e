// orlo metrics as users run it, judged by Prometheus' own tools from Debian: promtool's
// checker, and a node_exporter that serves what orlo wrote for its textfile collector.

#include <netinet/in.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "device_commands/InstalledOrlo.h"

namespace device_commands {

namespace {

std::vector<std::string> bundledImages() {
  std::vector<std::string> images;
  for (const auto& entry : std::filesystem::directory_iterator(ORLO_IMAGES_DIR)) {
    if (entry.is_directory()) images.push_back(entry.path().string());
  }
  std::sort(images.begin(), images.end());
  return images;
}

// The samples of orlo's families in an exposition: its lines that start with "orlo_".
std::vector<std::string> orloSamples(const std::string& text) {
  std::vector<std::string> samples;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind("orlo_", 0) == 0) samples.push_back(line);
  }
  return samples;
}

// A TCP port of 127.0.0.1 that was free a moment ago.
int freePort() {
  const int probe = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof address;
  bind(probe, reinterpret_cast<sockaddr*>(&address), length);
  getsockname(probe, reinterpret_cast<sockaddr*>(&address), &length);
  close(probe);
  return ntohs(address.sin_port);
}

// node_exporter with only its textfile collector, on 127.0.0.1:`port`, for at most two
// minutes, its log in `log`; stopped when the object goes, and with the test's process
// should that die.
class NodeExporter {
 public:
  NodeExporter(int port, const std::string& textfiles, const std::string& log) {
    const std::string listen = "--web.listen-address=127.0.0.1:" + std::to_string(port);
    const std::string directory = "--collector.textfile.directory=" + textfiles;
    pid_ = fork();
    if (pid_ == 0) {
      prctl(PR_SET_PDEATHSIG, SIGKILL);
      if (!std::freopen(log.c_str(), "w", stderr)) _exit(126);
      execl("/usr/bin/timeout", "timeout", "120", ORLO_NODE_EXPORTER, listen.c_str(),
            "--collector.disable-defaults", "--collector.textfile", directory.c_str(),
            static_cast<char*>(nullptr));
      _exit(127);
    }
  }
  NodeExporter(const NodeExporter&) = delete;
  NodeExporter& operator=(const NodeExporter&) = delete;
  ~NodeExporter() {
    if (pid_ <= 0) return;
    kill(pid_, SIGTERM);
    waitpid(pid_, nullptr, 0);
  }

 private:
  pid_t pid_;
};

class Metrics : public InstalledOrlo {
 protected:
  // What node_exporter serves on /metrics, once it answers (within ten seconds).
  Invocation scrape(int port) const {
    const std::string url = "http://127.0.0.1:" + std::to_string(port) + "/metrics";
    return orlo::testing::runThroughShell(
        {"curl", "-fsS", "--retry", "50", "--retry-connrefused", "--retry-delay", "1",
         "--retry-max-time", "10", "--max-time", "10", url},
        outputs);
  }
};

TEST_F(Metrics, EveryBundledImagePassesPromtoolWithoutARemark) {
  for (const std::string& image : bundledImages()) {
    const Invocation run = orlo({"metrics", "-ssd", image});
    ASSERT_EQ(run.exitCode, 0) << image << ": " << run.err;
    EXPECT_NE(run.out.find("\norlo_drive_up{device=\"" + image + "\","), std::string::npos)
        << run.out;
    EXPECT_EQ(run.err, "");
    const std::string file = scratch / "metrics.prom";
    orlo::testing::writeFile(file, run.out);
    const Invocation check = orlo::testing::runThroughShell(
        {ORLO_PROMTOOL, "check", "metrics"}, outputs, "<" + orlo::testing::shellQuoted(file));
    EXPECT_EQ(check.exitCode, 0) << image;
    EXPECT_EQ(check.out + check.err, "") << image;
  }
}

TEST_F(Metrics, NodeExporterServesWhatOrloWroteForItsTextfileCollector) {
  const std::string textfiles = scratch / "textfiles";
  std::filesystem::create_directory(textfiles);
  std::vector<std::string> written;
  for (const std::string& image : bundledImages()) {
    const std::string file =
        textfiles + "/" + std::filesystem::path(image).filename().string() + ".prom";
    const Invocation run = orlo({"metrics", "-ssd", image, "-file", file});
    ASSERT_EQ(run.exitCode, 0) << run.out << run.err;
    EXPECT_EQ(run.out, "Result: Wrote the health of 1 drive to " + file + ".\n");
    const std::vector<std::string> samples = orloSamples(orlo::testing::readFile(file));
    written.insert(written.end(), samples.begin(), samples.end());
  }
  const int port = freePort();
  const std::string log = scratch / "node_exporter.log";
  const NodeExporter exporter(port, textfiles, log);
  const Invocation scraped = scrape(port);
  ASSERT_EQ(scraped.exitCode, 0) << scraped.err << orlo::testing::readFile(log);
  EXPECT_NE(scraped.out.find("\nnode_textfile_scrape_error 0\n"), std::string::npos) << scraped.out;
  // node_exporter writes labels in its own order and numbers in its own form; the "up"
  // samples, with labels in that order and a whole number, read as orlo wrote them.
  const std::vector<std::string> served = orloSamples(scraped.out);
  EXPECT_EQ(served.size(), written.size()) << scraped.out;
  for (const std::string& sample : written) {
    if (sample.rfind("orlo_drive_up{", 0) == 0) {
      EXPECT_NE(std::find(served.begin(), served.end(), sample), served.end()) << sample;
    }
  }
}

}  // namespace

}  // namespace device_commands
