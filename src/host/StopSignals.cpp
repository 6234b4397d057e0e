#include "host/StopSignals.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

namespace orlo::host {

namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};
constexpr int kCount = sizeof kSignals / sizeof kSignals[0];

volatile sig_atomic_t gCaught = 0;
volatile sig_atomic_t gChild = 0;
struct sigaction gPrevious[kCount];

void onStop(int signal) {
  if (gCaught != 0) {
    ::signal(signal, SIG_DFL);
    raise(signal);  // held until this handler returns, then ends orlo
    return;
  }
  gCaught = signal;
  if (gChild > 0) kill(static_cast<pid_t>(gChild), signal);
}

sigset_t stopSet() {
  sigset_t set;
  sigemptyset(&set);
  for (const int signal : kSignals) sigaddset(&set, signal);
  return set;
}

// Runs `step` with the signals held back, so that the handler never sees a child half
// registered.
template <typename Step>
void heldBack(Step step) {
  const sigset_t set = stopSet();
  sigset_t previous;
  pthread_sigmask(SIG_BLOCK, &set, &previous);
  step();
  pthread_sigmask(SIG_SETMASK, &previous, nullptr);
}

}  // namespace

StopSignals::StopSignals() {
  gCaught = 0;
  gChild = 0;
  struct sigaction action {};
  action.sa_handler = onStop;
  action.sa_mask = stopSet();
  action.sa_flags = SA_RESTART;
  for (int i = 0; i < kCount; ++i) {
    sigaction(kSignals[i], nullptr, &gPrevious[i]);
    if (gPrevious[i].sa_handler != SIG_IGN) sigaction(kSignals[i], &action, nullptr);
  }
}

StopSignals::~StopSignals() {
  for (int i = 0; i < kCount; ++i) sigaction(kSignals[i], &gPrevious[i], nullptr);
}

int StopSignals::caught() const {
  return gCaught;
}

int StopSignals::spawn(pid_t& child, const char* program, const posix_spawn_file_actions_t* actions,
                       char* const argv[]) {
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  sigset_t none;
  sigemptyset(&none);
  const sigset_t defaults = stopSet();
  posix_spawnattr_setsigmask(&attributes, &none);
  posix_spawnattr_setsigdefault(&attributes, &defaults);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  int error = 0;
  heldBack([&] {
    error = posix_spawn(&child, program, actions, &attributes, argv, environ);
    if (error == 0) gChild = child;
  });
  posix_spawnattr_destroy(&attributes);
  return error;
}

int StopSignals::wait(pid_t child) {
  // Waited for without reaping first: until the child is reaped its number cannot go
  // to another process, which the handler would otherwise signal.
  siginfo_t info{};
  while (waitid(P_PID, static_cast<id_t>(child), &info, WEXITED | WNOWAIT) != 0 && errno == EINTR) {
  }
  heldBack([] { gChild = 0; });
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return status;
}

void StopSignals::endIfCaught() {
  const int signal = gCaught;
  if (signal == 0) return;
  for (int i = 0; i < kCount; ++i) sigaction(kSignals[i], &gPrevious[i], nullptr);
  ::signal(signal, SIG_DFL);
  raise(signal);
}

}  // namespace orlo::host
