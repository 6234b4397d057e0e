#pragma once

#include <cstdint>

// Where each thing stands in the ATA commands that orlo sends and in the
// IDENTIFY DEVICE data outside the decoder table: command codes, the size of a
// sector of data, and the text fields that name a drive. Each number stands
// here once.
namespace orlo::commands::ata::layout {

inline constexpr uint8_t kIdentifyDevice = 0xEC;
inline constexpr uint8_t kCheckPowerMode = 0xE5;
inline constexpr uint8_t kReadDma = 0xC8;

// The unit of every data transfer, and the size of IDENTIFY DEVICE data.
inline constexpr uint32_t kSectorSize = 512;

// A text of IDENTIFY DEVICE: `count` words from word `first`, two characters
// a word, the first in the high byte.
struct WordText {
  uint32_t first;
  uint32_t count;
};
inline constexpr WordText kSerialNumber{10, 10};     // words 10-19
inline constexpr WordText kFirmwareRevision{23, 4};  // words 23-26
inline constexpr WordText kModelNumber{27, 20};      // words 27-46

static_assert((kModelNumber.first + kModelNumber.count) * 2 <= kSectorSize);

}  // namespace orlo::commands::ata::layout
