#pragma once

#include <cstddef>
#include <cstdint>

// Drive structures store their numbers least significant byte first. These read and write
// such numbers of 1 to 8 bytes, and 16-byte counters as two halves, from a byte pointer.
namespace orlo::core::le {

// The `width` bytes at `bytes` as a number; `width` is at most 8.
constexpr uint64_t read(const uint8_t* bytes, std::size_t width) {
  uint64_t value = 0;
  for (std::size_t i = width; i-- > 0;) {
    value = value << 8 | bytes[i];
  }
  return value;
}

constexpr uint16_t read16(const uint8_t* bytes) {
  return static_cast<uint16_t>(read(bytes, 2));
}
constexpr uint32_t read32(const uint8_t* bytes) {
  return static_cast<uint32_t>(read(bytes, 4));
}
constexpr uint64_t read64(const uint8_t* bytes) {
  return read(bytes, 8);
}

// A 16-byte counter: `low` holds bytes 0 to 7, `high` bytes 8 to 15.
struct Pair128 {
  uint64_t low;
  uint64_t high;
};
constexpr Pair128 read128(const uint8_t* bytes) {
  return Pair128{read64(bytes), read64(bytes + 8)};
}

// Stores the low `width` bytes of `value` at `bytes`; `width` is at most 8.
constexpr void write(uint8_t* bytes, std::size_t width, uint64_t value) {
  for (std::size_t i = 0; i < width; ++i) {
    bytes[i] = static_cast<uint8_t>(value >> (8 * i));
  }
}

}  // namespace orlo::core::le
