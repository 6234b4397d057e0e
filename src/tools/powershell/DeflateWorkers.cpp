#include "DeflateWorkers.h"

#include <algorithm>
#include <thread>

namespace orlo::tools::powershell {

namespace {

// Beyond a few threads the disk, not deflate, sets the pace, and every thread
// adds blocks held in memory.
constexpr unsigned kMostThreads = 8;

unsigned threadCount() {
  return std::clamp(std::thread::hardware_concurrency(), 1u, kMostThreads);
}

}  // namespace

// Four blocks a thread keep every thread busy while libzip copies the
// deflated data out, and hold 4 MiB at most.
DeflateWorkers::DeflateWorkers() : pool_(threadCount()), free_(4 * threadCount()) {}

bool DeflateWorkers::reserve() {
  if (free_ <= 0) return false;
  --free_;
  return true;
}

}  // namespace orlo::tools::powershell
