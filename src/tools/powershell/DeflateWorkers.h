#pragma once

#include <boost/asio/thread_pool.hpp>
#include <cstddef>
#include <functional>
#include <optional>

namespace orlo::tools::powershell {

// The threads that deflate the blocks of the files being added, and the room
// for blocks deflated ahead of libzip's reading, shared by all those files so
// that memory stays bounded however many there are. Only the thread that runs
// libzip takes and gives back room. The threads start with the first block
// handed to them: most updates add small files, deflated where they are read.
class DeflateWorkers {
 public:
  DeflateWorkers();

  void post(std::function<void()> work);
  // Takes room for one block ahead if any is left.
  bool reserve();
  void release(std::size_t blocks) { free_ += blocks; }
  // A file that libzip is reading and that has no block under way takes room
  // for one regardless, so that reading always goes on.
  void reserveAnyway() { --free_; }

 private:
  std::optional<boost::asio::thread_pool> pool_;
  std::ptrdiff_t free_;
};

}  // namespace orlo::tools::powershell
