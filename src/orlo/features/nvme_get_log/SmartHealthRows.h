#pragma once

#include <cstdint>

#include "orlo/commands/nvme/Layout.h"
#include "orlo/features/identify/IdentifyTable.h"

// The SMART / Health Information log (log 02h) written down as rows, in the order of its
// bytes. Its decoder shows them; the health facts read the same rows.
namespace orlo::features::nvme_get_log::smartHealth {

using namespace identify::nvme::table;

constexpr uint32_t kLogSize = commands::nvme::layout::kSmartHealthLog.size;

// clang-format off
inline constexpr Row kCriticalWarningBits[] = {
    field("Bit 0", "Available Spare Below Threshold",                   decimal).as("available_spare"),
    field("Bit 1", "Temperature Above or Below a Threshold",            decimal).as("temp_threshold"),
    field("Bit 2", "NVM Subsystem Reliability Degraded",                decimal).as("reliability_degraded"),
    field("Bit 3", "Media Placed in Read-only Mode",                    decimal).as("ro"),
    field("Bit 4", "Volatile Memory Backup Device Failed",              decimal).as("vmbu_failed"),
    field("Bit 5", "Persistent Memory Region Read-only or Unreliable",  decimal).as("pmr_ro"),
};

inline constexpr Row kEnduranceGroupWarningBits[] = {
    field("Bit 0", "Available Spare Below Threshold",  decimal),
    field("Bit 2", "Reliability Degraded",             decimal),
    field("Bit 3", "Namespaces in Read-only Mode",     decimal),
};

inline constexpr Row kCriticalWarning         = group("Byte 00", "Critical Warning", hex(2), kCriticalWarningBits);
inline constexpr Row kCompositeTemperature    = field("Bytes 02:01", "Composite Temperature", kelvin).as("temperature");
inline constexpr Row kAvailableSpare          = field("Byte 03", "Available Spare", decimalIn("%")).as("avail_spare");
inline constexpr Row kAvailableSpareThreshold = field("Byte 04", "Available Spare Threshold", decimalIn("%")).as("spare_thresh");
inline constexpr Row kPercentageUsed          = field("Byte 05", "Percentage Used", decimalIn("%")).as("percent_used");
inline constexpr Row kPowerOnHours            = field("Bytes 143:128", "Power On Hours", decimal128In(" hours"));
inline constexpr Row kUnsafeShutdowns         = field("Bytes 159:144", "Unsafe Shutdowns", decimal128);
inline constexpr Row kMediaErrors             = field("Bytes 175:160", "Media and Data Integrity Errors", decimal128).as("media_errors");

inline constexpr Row kRows[] = {
    kCriticalWarning,
    kCompositeTemperature,
    kAvailableSpare,
    kAvailableSpareThreshold,
    kPercentageUsed,
    group("Byte 06",       "Endurance Group Critical Warning Summary", hex(2), kEnduranceGroupWarningBits).as("endurance_grp_critical_warning_summary"),
    field("Bytes 31:07",   "Reserved",                                  longHex),
    field("Bytes 47:32",   "Data Units Read",                           dataUnits),
    field("Bytes 63:48",   "Data Units Written",                        dataUnits),
    field("Bytes 79:64",   "Host Read Commands",                        decimal128),
    field("Bytes 95:80",   "Host Write Commands",                       decimal128),
    field("Bytes 111:96",  "Controller Busy Time",                      decimal128In(" minutes")),
    field("Bytes 127:112", "Power Cycles",                              decimal128),
    kPowerOnHours,
    kUnsafeShutdowns,
    kMediaErrors,
    field("Bytes 191:176", "Number of Error Information Log Entries",   decimal128).as("num_err_log_entries"),
    field("Bytes 195:192", "Warning Composite Temperature Time",        decimalIn(" minutes")).as("warning_temp_time"),
    field("Bytes 199:196", "Critical Composite Temperature Time",       decimalIn(" minutes")).as("critical_comp_time"),
    field("Bytes 201:200", "Temperature Sensor 1",                      kelvin),
    field("Bytes 203:202", "Temperature Sensor 2",                      kelvin),
    field("Bytes 205:204", "Temperature Sensor 3",                      kelvin),
    field("Bytes 207:206", "Temperature Sensor 4",                      kelvin),
    field("Bytes 209:208", "Temperature Sensor 5",                      kelvin),
    field("Bytes 211:210", "Temperature Sensor 6",                      kelvin),
    field("Bytes 213:212", "Temperature Sensor 7",                      kelvin),
    field("Bytes 215:214", "Temperature Sensor 8",                      kelvin),
    field("Bytes 219:216", "Thermal Management Temperature 1 Transition Count", decimal).as("thm_temp1_trans_count"),
    field("Bytes 223:220", "Thermal Management Temperature 2 Transition Count", decimal).as("thm_temp2_trans_count"),
    field("Bytes 227:224", "Total Time for Thermal Management Temperature 1",   decimalIn(" seconds")).as("thm_temp1_total_time"),
    field("Bytes 231:228", "Total Time for Thermal Management Temperature 2",   decimalIn(" seconds")).as("thm_temp2_total_time"),
    field("Bytes 511:232", "Reserved",                                  longHex),
};
// clang-format on

static_assert(tiles(kRows, kLogSize));

}  // namespace orlo::features::nvme_get_log::smartHealth
