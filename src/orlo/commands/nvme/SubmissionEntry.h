#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "orlo/commands/nvme/Layout.h"

namespace orlo::commands::nvme {

// The 64-byte submission queue entry exactly as the drive receives it. Numbers are
// stored little-endian whatever the host's order, so every access goes through the
// byte-wise readers and writers below.
class SubmissionEntry {
 public:
  static constexpr std::size_t kSize = 64;

  // The `width` bytes (1 to 8) at `offset`, low byte first.
  uint64_t read(std::size_t offset, std::size_t width) const;
  void write(std::size_t offset, std::size_t width, uint64_t value);

  // Command dword `index` (0 to 15), at bytes 4 * index to 4 * index + 3.
  uint32_t dword(std::size_t index) const;
  void setDword(std::size_t index, uint32_t value);
  // A named field of the command dwords; setting one leaves the dword's other bits as they are.
  uint32_t get(const layout::EntryField& field) const;
  void set(const layout::EntryField& field, uint32_t value);

  const uint8_t* data() const { return bytes.data(); }

  std::array<uint8_t, kSize> bytes{};
};

}  // namespace orlo::commands::nvme
