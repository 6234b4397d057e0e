#pragma once

#include <cstdint>

namespace orlo::core {

// Alignment of every payload buffer, so that a buffer can be handed to a driver.
constexpr uint64_t kBufferAlignment = 4096;

// A zero-filled buffer of `size` bytes aligned to kBufferAlignment, or null when the
// allocation fails (reported on the log and the standard error stream). Released by
// releaseBuffer.
uint8_t* createBuffer(uint64_t size);

// Wipes `size` bytes of a buffer from createBuffer, then frees it.
void releaseBuffer(uint8_t* buffer, uint64_t size);

namespace memory {

// The toolkit's size-checking copy; regions may overlap. Returns 0 on success, 22 for a
// null pointer, 34 when the source is larger than the destination (which is also
// reported as fatal, and nothing is copied).
int32_t memCopy(void* destination, uint64_t destinationSize, const void* source,
                uint64_t sourceSize);

}  // namespace memory
}  // namespace orlo::core
