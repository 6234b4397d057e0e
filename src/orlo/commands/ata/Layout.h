#pragma once

#include <cstdint>

#include "orlo/core/BitField.h"

// Where each thing stands in the ATA commands that orlo sends and in the
// IDENTIFY DEVICE data outside the decoder table: command codes, the size of a
// sector of data, the text fields that name a drive, the SMART data structures
// and the Device Statistics log. Each number stands here once.
namespace orlo::commands::ata::layout {

inline constexpr uint8_t kIdentifyDevice = 0xEC;
inline constexpr uint8_t kCheckPowerMode = 0xE5;
inline constexpr uint8_t kReadDma = 0xC8;
inline constexpr uint8_t kSmart = 0xB0;
inline constexpr uint8_t kReadLogExt = 0x2F;

// SMART subcommands, in the Features register, and the signature that every SMART
// command carries in LBA Mid and LBA High.
inline constexpr uint8_t kSmartReadData = 0xD0;
inline constexpr uint8_t kSmartReadThresholds = 0xD1;
inline constexpr uint8_t kSmartReturnStatus = 0xDA;
inline constexpr uint8_t kSmartSignatureMid = 0x4F;
inline constexpr uint8_t kSmartSignatureHigh = 0xC2;
// What SMART RETURN STATUS leaves in LBA Mid and LBA High when a threshold is
// exceeded; the signature itself means that none is.
inline constexpr uint8_t kSmartExceededMid = 0xF4;
inline constexpr uint8_t kSmartExceededHigh = 0x2C;

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

// SMART READ DATA and SMART READ THRESHOLDS: one sector each, a 16-bit revision,
// then 30 entries of 12 bytes from byte 2, and a checksum in the last byte. An
// entry of data: id, flags (16 bits), current, worst, six raw bytes, one vendor
// byte. An entry of thresholds: id, threshold, ten reserved bytes. Id 0 is an
// unused entry.
inline constexpr uint32_t kSmartEntriesOffset = 2;
inline constexpr uint32_t kSmartEntryCount = 30;
inline constexpr uint32_t kSmartEntrySize = 12;
inline constexpr uint32_t kSmartEntryId = 0;
inline constexpr uint32_t kSmartEntryFlags = 1;
inline constexpr uint32_t kSmartEntryCurrent = 3;
inline constexpr uint32_t kSmartEntryWorst = 4;
inline constexpr uint32_t kSmartEntryRaw = 5;
inline constexpr uint32_t kSmartEntryRawBytes = 6;
inline constexpr uint32_t kSmartEntryThreshold = 1;

// General Purpose Logs read with READ LOG EXT: the log address goes in LBA Low, the
// page number in LBA Mid (bits 7:0) and the previous LBA Mid (bits 15:8), the
// number of pages in Sector Count and the previous Sector Count.
inline constexpr uint8_t kLogDirectory = 0x00;
inline constexpr uint8_t kDeviceStatisticsLog = 0x04;
// The directory holds the number of pages of log N in the 16-bit word N.
inline constexpr uint32_t kDirectoryWordSize = 2;

// Device Statistics: pages of 512 bytes, each starting with an 8-byte header whose
// byte 2 is the page number. Page 0 lists the pages that the drive keeps: their
// count in byte 8, their numbers from byte 9. Every statistic is an 8-byte
// little-endian quadword: its flags in bits 63:56, its value below.
inline constexpr uint8_t kStatisticsListPage = 0x00;
inline constexpr uint8_t kGeneralStatisticsPage = 0x01;
inline constexpr uint8_t kTemperatureStatisticsPage = 0x05;
inline constexpr uint8_t kSolidStateStatisticsPage = 0x07;
inline constexpr uint32_t kStatisticsPageNumberByte = 2;
inline constexpr uint32_t kStatisticsListCount = 8;
inline constexpr uint32_t kStatisticsListFirst = 9;
inline constexpr core::BitField kStatisticSupported = core::bit(63);
inline constexpr core::BitField kStatisticValid = core::bit(62);
inline constexpr core::BitField kStatisticConditionMet = core::bit(59);

// The statistics that the toolkit reads: the page, the byte offset in it, and the
// bits of the value.
struct Statistic {
  uint8_t page;
  uint32_t offset;
  core::BitField value;
};
inline constexpr Statistic kPowerOnResets{kGeneralStatisticsPage, 8, core::bits(31, 0)};
inline constexpr Statistic kPowerOnHours{kGeneralStatisticsPage, 16, core::bits(31, 0)};
inline constexpr Statistic kLogicalSectorsWritten{kGeneralStatisticsPage, 24, core::bits(47, 0)};
inline constexpr Statistic kWriteCommands{kGeneralStatisticsPage, 32, core::bits(47, 0)};
inline constexpr Statistic kLogicalSectorsRead{kGeneralStatisticsPage, 40, core::bits(47, 0)};
inline constexpr Statistic kReadCommands{kGeneralStatisticsPage, 48, core::bits(47, 0)};
inline constexpr Statistic kCurrentTemperature{kTemperatureStatisticsPage, 8, core::bits(7, 0)};
inline constexpr Statistic kAverageShortTermTemperature{kTemperatureStatisticsPage, 16,
                                                        core::bits(7, 0)};
inline constexpr Statistic kAverageLongTermTemperature{kTemperatureStatisticsPage, 24,
                                                       core::bits(7, 0)};
inline constexpr Statistic kHighestTemperature{kTemperatureStatisticsPage, 32, core::bits(7, 0)};
inline constexpr Statistic kLowestTemperature{kTemperatureStatisticsPage, 40, core::bits(7, 0)};
inline constexpr Statistic kTimeOverTemperature{kTemperatureStatisticsPage, 80, core::bits(31, 0)};
inline constexpr Statistic kMaximumOperatingTemperature{kTemperatureStatisticsPage, 88,
                                                        core::bits(7, 0)};
inline constexpr Statistic kTimeUnderTemperature{kTemperatureStatisticsPage, 96, core::bits(31, 0)};
inline constexpr Statistic kMinimumOperatingTemperature{kTemperatureStatisticsPage, 104,
                                                        core::bits(7, 0)};
inline constexpr Statistic kPercentageUsed{kSolidStateStatisticsPage, 8, core::bits(7, 0)};

static_assert((kModelNumber.first + kModelNumber.count) * 2 <= kSectorSize);

}  // namespace orlo::commands::ata::layout
