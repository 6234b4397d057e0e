#pragma once

#include <cstdint>

#include "orlo/commands/ata/Layout.h"

// The Device Statistics log written down as rows: the pages that the toolkit shows,
// and the statistics on them with the unit each counts in.
namespace orlo::features::ata_smart::statistics {

namespace layout = commands::ata::layout;

struct PageRow {
  uint8_t page;
  const char* name;
};

inline constexpr PageRow kPageRows[] = {
    {layout::kGeneralStatisticsPage, "General Statistics"},
    {layout::kTemperatureStatisticsPage, "Temperature Statistics"},
    {layout::kSolidStateStatisticsPage, "Solid State Device Statistics"},
};

// How a value is read: a count, or a temperature in signed degrees Celsius.
enum class Reading { count, celsius };

struct StatisticRow {
  layout::Statistic statistic;
  const char* name;  // with its unit
  Reading reading;
};

inline constexpr StatisticRow kStatisticRows[] = {
    {layout::kPowerOnResets, "Lifetime Power-On Resets", Reading::count},
    {layout::kPowerOnHours, "Power-on Hours (hours)", Reading::count},
    {layout::kLogicalSectorsWritten, "Logical Sectors Written (sectors)", Reading::count},
    {layout::kWriteCommands, "Number of Write Commands", Reading::count},
    {layout::kLogicalSectorsRead, "Logical Sectors Read (sectors)", Reading::count},
    {layout::kReadCommands, "Number of Read Commands", Reading::count},
    {layout::kCurrentTemperature, "Current Temperature (Celsius)", Reading::celsius},
    {layout::kAverageShortTermTemperature, "Average Short Term Temperature (Celsius)",
     Reading::celsius},
    {layout::kAverageLongTermTemperature, "Average Long Term Temperature (Celsius)",
     Reading::celsius},
    {layout::kHighestTemperature, "Highest Temperature (Celsius)", Reading::celsius},
    {layout::kLowestTemperature, "Lowest Temperature (Celsius)", Reading::celsius},
    {layout::kTimeOverTemperature, "Time in Over-Temperature (minutes)", Reading::count},
    {layout::kMaximumOperatingTemperature, "Specified Maximum Operating Temperature (Celsius)",
     Reading::celsius},
    {layout::kTimeUnderTemperature, "Time in Under-Temperature (minutes)", Reading::count},
    {layout::kMinimumOperatingTemperature, "Specified Minimum Operating Temperature (Celsius)",
     Reading::celsius},
    {layout::kPercentageUsed, "Percentage Used Endurance Indicator (percent)", Reading::count},
};

}  // namespace orlo::features::ata_smart::statistics
