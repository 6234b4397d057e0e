#pragma once

#include <cstdint>

namespace orlo::core {

// Bits `high` down to `low` of a number, both counted from bit 0 and both included.
struct BitField {
  uint8_t high;
  uint8_t low;

  constexpr unsigned width() const { return high - low + 1u; }
  // The field's bits in place, all set.
  constexpr uint64_t mask() const {
    return (width() >= 64 ? ~uint64_t{0} : (uint64_t{1} << width()) - 1) << low;
  }
};

constexpr BitField bits(uint8_t high, uint8_t low) {
  return BitField{high, low};
}
constexpr BitField bit(uint8_t position) {
  return BitField{position, position};
}

// The field's value, moved down to bit 0.
constexpr uint64_t extract(uint64_t value, BitField field) {
  return (value & field.mask()) >> field.low;
}

// `into` with the field replaced by the low bits of `value`.
constexpr uint64_t insert(uint64_t into, BitField field, uint64_t value) {
  return (into & ~field.mask()) | (value << field.low & field.mask());
}

static_assert(bits(63, 0).mask() == ~uint64_t{0});
static_assert(bit(63).mask() == uint64_t{1} << 63);
static_assert(extract(0xABCD, bits(11, 4)) == 0xBC);
static_assert(insert(0xFFFF, bits(7, 4), 0x1) == 0xFF1F);

}  // namespace orlo::core
