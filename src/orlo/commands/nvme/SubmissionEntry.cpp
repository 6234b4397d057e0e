#include "orlo/commands/nvme/SubmissionEntry.h"

namespace orlo::commands::nvme {

uint64_t SubmissionEntry::read(std::size_t offset, std::size_t width) const {
  uint64_t value = 0;
  for (std::size_t i = width; i-- > 0;) value = (value << 8) | bytes.at(offset + i);
  return value;
}

void SubmissionEntry::write(std::size_t offset, std::size_t width, uint64_t value) {
  for (std::size_t i = 0; i < width; ++i, value >>= 8) {
    bytes.at(offset + i) = static_cast<uint8_t>(value);
  }
}

uint32_t SubmissionEntry::dword(std::size_t index) const {
  return static_cast<uint32_t>(read(4 * index, 4));
}

void SubmissionEntry::setDword(std::size_t index, uint32_t value) {
  write(4 * index, 4, value);
}

void SubmissionEntry::setDwordBits(std::size_t index, unsigned lowBit, unsigned count,
                                   uint32_t value) {
  const uint64_t mask = ((uint64_t{1} << count) - 1) << lowBit;
  const uint64_t merged = (dword(index) & ~mask) | ((uint64_t{value} << lowBit) & mask);
  setDword(index, static_cast<uint32_t>(merged));
}

uint32_t SubmissionEntry::get(const layout::EntryField& field) const {
  const uint64_t mask = (uint64_t{1} << field.width) - 1;
  return static_cast<uint32_t>((dword(field.dword) >> field.lowBit) & mask);
}

}  // namespace orlo::commands::nvme
