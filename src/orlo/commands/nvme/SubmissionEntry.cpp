#include "orlo/commands/nvme/SubmissionEntry.h"

#include "orlo/core/LittleEndian.h"

namespace orlo::commands::nvme {

// at() on the last byte refuses a range that runs past the entry.

uint64_t SubmissionEntry::read(std::size_t offset, std::size_t width) const {
  return core::le::read(&bytes.at(offset + width - 1) - (width - 1), width);
}

void SubmissionEntry::write(std::size_t offset, std::size_t width, uint64_t value) {
  core::le::write(&bytes.at(offset + width - 1) - (width - 1), width, value);
}

uint32_t SubmissionEntry::dword(std::size_t index) const {
  return static_cast<uint32_t>(read(4 * index, 4));
}

void SubmissionEntry::setDword(std::size_t index, uint32_t value) {
  write(4 * index, 4, value);
}

uint32_t SubmissionEntry::get(const layout::EntryField& field) const {
  return static_cast<uint32_t>(core::extract(dword(field.dword), field.bits));
}

void SubmissionEntry::set(const layout::EntryField& field, uint32_t value) {
  setDword(field.dword, static_cast<uint32_t>(core::insert(dword(field.dword), field.bits, value)));
}

}  // namespace orlo::commands::nvme
