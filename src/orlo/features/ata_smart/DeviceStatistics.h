#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "orlo/commands/ata/Layout.h"
#include "orlo/core/Payload.h"
#include "orlo/core/xml/XmlObject.h"

namespace orlo::features::ata_smart {

// A statistic as the drive keeps it: its value with whether the drive calls it valid
// and whether its monitored condition is met.
struct StatisticValue {
  uint64_t value = 0;
  bool valid = false;
  bool conditionMet = false;
};

// The statistic from the Device Statistics log, read from page 0 on: none when the
// log is too short for its page, page 0 does not list the page, the page's header
// names another page, or the drive does not support the statistic.
std::optional<StatisticValue> readStatistic(const core::Payload& log,
                                            const commands::ata::layout::Statistic& statistic);

// A valid statistic's value, or none.
std::optional<uint64_t> validStatistic(const core::Payload& log,
                                       const commands::ata::layout::Statistic& statistic);

// The log as a tree: the pages that page 0 lists, then one child per page of the
// toolkit's with the statistics that the drive supports.
std::unique_ptr<core::xml::XmlObject> decodeDeviceStatistics(const core::Payload& log);

}  // namespace orlo::features::ata_smart
