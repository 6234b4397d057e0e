#include "orlo/core/Memory.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>

#include "orlo/core/Logging.h"

namespace orlo::core {

uint8_t* createBuffer(uint64_t size) {
  void* buffer = nullptr;
  if (posix_memalign(&buffer, kBufferAlignment, size) != 0) {
    ORLO_REPORT_FATAL("Unable to allocate data with a size of " + std::to_string(size) +
                      " and alignment of " + std::to_string(kBufferAlignment));
    return nullptr;
  }
  std::memset(buffer, 0, size);
  return static_cast<uint8_t*>(buffer);
}

void releaseBuffer(uint8_t* buffer, uint64_t size) {
  if (buffer == nullptr) return;
  // Not a plain memset: the compiler may drop a store to memory that is freed next.
  explicit_bzero(buffer, size);
  std::free(buffer);
}

namespace memory {

int32_t memCopy(void* destination, uint64_t destinationSize, const void* source,
                uint64_t sourceSize) {
  if (sourceSize > destinationSize) {
    ORLO_REPORT_FATAL("Invalid call to memCopy: source size (" + std::to_string(sourceSize) +
                      ") is greater than destination size (" + std::to_string(destinationSize) +
                      ")");
  }
  if (destination == nullptr || source == nullptr) return EINVAL;
  if (destinationSize < sourceSize) return ERANGE;
  if (sourceSize == 0) return 0;
  std::memmove(destination, source, sourceSize);
  return 0;
}

}  // namespace memory
}  // namespace orlo::core
