#include "DeflateWorkers.h"

#include <algorithm>
#include <boost/asio/post.hpp>
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
DeflateWorkers::DeflateWorkers() : free_(4 * threadCount()) {}

void DeflateWorkers::post(std::function<void()> work) {
  if (!pool_) pool_.emplace(threadCount());
  boost::asio::post(*pool_, std::move(work));
}

bool DeflateWorkers::reserve() {
  if (free_ <= 0) return false;
  --free_;
  return true;
}

}  // namespace orlo::tools::powershell
