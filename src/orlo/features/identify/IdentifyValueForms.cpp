#include "orlo/features/identify/IdentifyValueForms.h"

#include <algorithm>
#include <boost/multiprecision/cpp_int.hpp>

#include "orlo/core/LittleEndian.h"
#include "orlo/core/Strings.h"

namespace orlo::features::identify::nvme::valueForms {

namespace {

// How many of the `length` bytes at `offset` lie inside the payload.
uint32_t bytesInside(const core::Payload& payload, uint32_t offset, uint32_t length) {
  const uint64_t size = payload.size();
  if (offset >= size) {
    return 0;
  }
  return static_cast<uint32_t>(std::min<uint64_t>(length, size - offset));
}

using boost::multiprecision::uint256_t;

// The 16 bytes at `offset`; wider than needed, so that a product of it stays exact.
uint256_t number128(const core::Payload& payload, uint32_t offset) {
  return uint256_t(littleEndian(payload, offset + 8, 8)) << 64 | littleEndian(payload, offset, 8);
}

// A drive counts data units of 1000 blocks of 512 bytes.
constexpr unsigned kBytesPerDataUnit = 1000 * 512;
constexpr int64_t kZeroCelsiusInKelvins = 273;

}  // namespace

uint64_t littleEndian(const core::Payload& payload, uint32_t offset, uint32_t length) {
  const uint32_t inside = bytesInside(payload, offset, std::min<uint32_t>(length, 8));
  return inside == 0 ? 0 : core::le::read(payload.data() + offset, inside);
}

uint64_t bits(const core::Payload& payload, uint32_t offset, core::BitField field) {
  if (field.high < field.low) {
    return 0;
  }
  const unsigned width = std::min(field.width(), 64u);
  const uint32_t first = offset + field.low / 8;
  const unsigned shift = field.low % 8;
  // Up to 64 bits starting inside a byte reach into a ninth byte.
  uint64_t value = littleEndian(payload, first, 8) >> shift;
  if (shift + width > 64) {
    value |= littleEndian(payload, first + 8, 1) << (64 - shift);
  }
  return core::extract(value, core::bits(static_cast<uint8_t>(width - 1), 0));
}

std::string decimal(uint64_t value) {
  return core::strings::toString(value);
}

std::string hex(uint64_t value, uint32_t digits) {
  return bareHex(value, digits).insert(0, "0x");
}

std::string bareHex(uint64_t value, uint32_t digits) {
  return core::strings::toHex(value, digits);
}

std::string longHex(const core::Payload& payload, uint32_t offset, uint32_t length, bool reverse) {
  const uint32_t inside = bytesInside(payload, offset, length);
  if (inside == 0) {
    return "0x";
  }
  return core::strings::toHexNumber(payload.data() + offset, inside, reverse);
}

std::string hex128(const core::Payload& payload, uint32_t offset) {
  return "0x" + bareHex(littleEndian(payload, offset + 8, 8), 16) +
         bareHex(littleEndian(payload, offset, 8), 16);
}

std::string decimal128(const core::Payload& payload, uint32_t offset) {
  return number128(payload, offset).str();
}

int64_t celsius(uint64_t kelvins) {
  return static_cast<int64_t>(kelvins) - kZeroCelsiusInKelvins;
}

std::string kelvin(uint64_t kelvins) {
  if (kelvins == 0) return "Not reported";
  return decimal(kelvins) + " K (" + std::to_string(celsius(kelvins)) + " °C)";
}

std::string dataUnits(const core::Payload& payload, uint32_t offset) {
  const uint256_t units = number128(payload, offset);
  return units.str() + " (" + (units * kBytesPerDataUnit).str() + " bytes)";
}

std::string text(const core::Payload& payload, uint32_t offset, uint32_t length) {
  const uint32_t inside = bytesInside(payload, offset, length);
  if (inside == 0) {
    return "";
  }
  const auto* start = reinterpret_cast<const char*>(payload.data() + offset);
  return core::strings::sanitize(std::string(start, inside));
}

}  // namespace orlo::features::identify::nvme::valueForms
