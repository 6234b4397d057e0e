#include "host/ChildSignals.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <initializer_list>

namespace orlo::host {

namespace {

// Descendants deeper than this are reached through their parents' own
// handling, should there be any.
constexpr int kDepth = 4;

char* appendText(char* end, const char* text) {
  while (*text != '\0') *end++ = *text++;
  return end;
}

char* appendNumber(char* end, pid_t number) {
  char digits[16];
  int count = 0;
  do {
    digits[count++] = static_cast<char>('0' + number % 10);
    number /= 10;
  } while (number > 0 && count < 15);
  while (count > 0) *end++ = digits[--count];
  return end;
}

// Signals the deepest descendants of `pid`: a process whose children got the signal
// hears of their end from them. A shell between orlo and the program it runs would
// otherwise die at once, and orlo, whose wait ends with it, would report while the
// program still removes its temporary file. Says whether there were any. Only what a
// signal handler may do: no allocation, no stdio.
bool signalDescendants(pid_t pid, int signal, int depth) {
  char path[80];
  char* end = appendText(path, "/proc/");
  end = appendNumber(end, pid);
  end = appendText(end, "/task/");
  end = appendNumber(end, pid);
  end = appendText(end, "/children");
  *end = '\0';

  const int file = open(path, O_RDONLY | O_CLOEXEC);
  if (file < 0) return false;
  char list[512];
  const ssize_t length = read(file, list, sizeof list - 1);
  close(file);
  if (length <= 0) return false;
  bool found = false;
  pid_t child = 0;
  for (ssize_t at = 0; at <= length; ++at) {
    const char c = at < length ? list[at] : ' ';
    if (c >= '0' && c <= '9') {
      child = child * 10 + (c - '0');
      continue;
    }
    if (child <= 0) continue;
    if (depth == 1 || !signalDescendants(child, signal, depth - 1)) kill(child, signal);
    found = true;
    child = 0;
  }
  return found;
}

void passOn(int signal) {
  const int saved = errno;
  if (!signalDescendants(getpid(), signal, kDepth)) {
    ::signal(signal, SIG_DFL);
    raise(signal);
  }
  errno = saved;
}

}  // namespace

void passTerminationToChildren() {
  struct sigaction action {};
  action.sa_handler = passOn;
  sigemptyset(&action.sa_mask);
  action.sa_flags = SA_RESTART;
  for (const int signal : {SIGTERM, SIGHUP}) sigaction(signal, &action, nullptr);
}

}  // namespace orlo::host
