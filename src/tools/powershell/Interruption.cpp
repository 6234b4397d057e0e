#include "Interruption.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <thread>

#include "Messages.h"

namespace orlo::tools::powershell::interruption {

namespace {

std::mutex guard;
std::string watchedArchive;
std::string watchedTemporary;
bool committed = false;

sigset_t interruptions() {
  sigset_t set;
  sigemptyset(&set);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&set, signal);
  return set;
}

[[noreturn]] void waitForSignals(sigset_t set) {
  for (;;) {
    int signal = 0;
    if (sigwait(&set, &signal) != 0) continue;
    const std::lock_guard<std::mutex> lock(guard);
    if (committed) continue;
    if (!watchedTemporary.empty()) unlink(watchedTemporary.c_str());
    const std::string line = messages::interrupted(watchedArchive, strsignal(signal)) + "\n";
    std::fputs(line.c_str(), stderr);
    std::fflush(stderr);
    _exit(1);
  }
}

}  // namespace

void start() {
  const sigset_t set = interruptions();
  pthread_sigmask(SIG_BLOCK, &set, nullptr);
  std::thread(waitForSignals, set).detach();
  // Asked for after the thread waits, so that a parent already gone is seen by
  // the test below and one that goes later by the signal.
  const pid_t parent = getppid();
  prctl(PR_SET_PDEATHSIG, SIGHUP);
  if (getppid() != parent) kill(getpid(), SIGHUP);
}

void name(const std::string& archive) {
  const std::lock_guard<std::mutex> lock(guard);
  watchedArchive = archive;
}

void removeOnSignal(const std::string& temporary) {
  const std::lock_guard<std::mutex> lock(guard);
  watchedTemporary = temporary;
}

int createRemovedOnSignal(std::string& pattern) {
  const std::lock_guard<std::mutex> lock(guard);
  const int descriptor = mkostemp(pattern.data(), O_CLOEXEC);
  if (descriptor >= 0) watchedTemporary = pattern;
  return descriptor;
}

void commit() {
  const std::lock_guard<std::mutex> lock(guard);
  committed = true;
}

}  // namespace orlo::tools::powershell::interruption
