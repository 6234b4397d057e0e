#pragma once

#include <cstdint>
#include <limits>

namespace orlo::features::identify::nvme {

// Where the entries of a list in an Identify reply lie: the first at `start`, each
// `stride` bytes after the one before, at most `limit` of them.
struct ListWalk {
  uint32_t start;
  uint32_t stride;
  uint32_t limit = std::numeric_limits<uint32_t>::max();

  // Calls visit(offset, index) for each entry in turn until `visit` returns false, the
  // limit is reached, or the next entry would not lie wholly within the `size` bytes of the
  // payload: a count in the reply never leads the walk outside the buffer. Gives the number
  // of entries that `visit` took.
  template <typename Visit>
  uint32_t walk(uint32_t size, Visit visit) const {
    uint32_t index = 0;
    for (uint64_t offset = start; index < limit && offset + stride <= size; offset += stride) {
      if (!visit(static_cast<uint32_t>(offset), index)) {
        break;
      }
      ++index;
    }
    return index;
  }
};

}  // namespace orlo::features::identify::nvme
