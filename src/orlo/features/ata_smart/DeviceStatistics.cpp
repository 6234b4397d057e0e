#include "orlo/features/ata_smart/DeviceStatistics.h"

#include <string>

#include "orlo/core/LittleEndian.h"
#include "orlo/features/ata_smart/DeviceStatisticsTable.h"
#include "orlo/features/nvme_get_log/LogTree.h"

namespace orlo::features::ata_smart {

namespace {

namespace layout = commands::ata::layout;
using nvme_get_log::addNameValue;

constexpr uint32_t kPageSize = layout::kSectorSize;

bool holds(const core::Payload& log, uint32_t bytes) {
  return log.data() != nullptr && log.size() >= bytes;
}

// The numbers of the pages that page 0 lists, in its order.
std::string listedPages(const core::Payload& log) {
  if (!holds(log, kPageSize)) return {};
  std::string pages;
  const uint32_t count = log[layout::kStatisticsListCount];
  for (uint32_t at = 0; at < count && layout::kStatisticsListFirst + at < kPageSize; ++at) {
    pages.push_back(static_cast<char>(log[layout::kStatisticsListFirst + at]));
  }
  return pages;
}

// Page 0 lists the page, the log holds it and its header names it.
bool hasPage(const core::Payload& log, uint8_t page) {
  const uint32_t start = page * kPageSize;
  return listedPages(log).find(static_cast<char>(page)) != std::string::npos &&
         holds(log, start + kPageSize) && log[start + layout::kStatisticsPageNumberByte] == page;
}

std::string shown(const StatisticValue& statistic, statistics::Reading reading) {
  if (!statistic.valid) return "Not valid";
  std::string text = reading == statistics::Reading::celsius
                         ? std::to_string(static_cast<int8_t>(statistic.value))
                         : std::to_string(statistic.value);
  return statistic.conditionMet ? text + " (monitored condition met)" : text;
}

// A valid statistic as its number, in the unit that the drive counts; an invalid one is
// left out.
core::xml::Keyed keyedOf(const statistics::StatisticRow& row, const StatisticValue& statistic) {
  if (!statistic.valid) return {};
  core::xml::Keyed keyed = core::xml::Keyed::number(core::xml::keyOf(row.name), statistic.value);
  if (row.reading == statistics::Reading::celsius) {
    keyed.value = std::to_string(static_cast<int8_t>(statistic.value));
  }
  return keyed;
}

}  // namespace

std::optional<StatisticValue> readStatistic(const core::Payload& log,
                                            const layout::Statistic& statistic) {
  if (!hasPage(log, statistic.page)) return std::nullopt;
  const uint8_t* bytes = log.data() + statistic.page * kPageSize + statistic.offset;
  const uint64_t quadword = core::le::read64(bytes);
  if (core::extract(quadword, layout::kStatisticSupported) == 0) return std::nullopt;
  StatisticValue value;
  value.value = core::extract(quadword, statistic.value);
  value.valid = core::extract(quadword, layout::kStatisticValid) != 0;
  value.conditionMet = core::extract(quadword, layout::kStatisticConditionMet) != 0;
  return value;
}

std::optional<uint64_t> validStatistic(const core::Payload& log,
                                       const layout::Statistic& statistic) {
  const std::optional<StatisticValue> read = readStatistic(log, statistic);
  if (!read || !read->valid) return std::nullopt;
  return read->value;
}

std::unique_ptr<core::xml::XmlObject> decodeDeviceStatistics(const core::Payload& log) {
  auto root = nvme_get_log::namedObject("Device Statistics (Log 04h)");
  std::string list;
  for (const char page : listedPages(log)) {
    list += (list.empty() ? "" : ", ") + std::to_string(static_cast<uint8_t>(page));
  }
  addNameValue(*root, "Supported Pages", list.empty() ? "None" : list);
  for (const statistics::PageRow& page : statistics::kPageRows) {
    if (!hasPage(log, page.page)) continue;
    auto child = std::make_unique<core::xml::XmlObject>();
    child->attribute("name") = std::string(page.name) + " (Page " + std::to_string(page.page) + ")";
    child->keyed() = core::xml::Keyed::object(core::xml::keyOf(page.name));
    for (const statistics::StatisticRow& row : statistics::kStatisticRows) {
      if (row.statistic.page != page.page) continue;
      if (const auto value = readStatistic(log, row.statistic)) {
        addNameValue(*child, row.name, shown(*value, row.reading)).keyed() = keyedOf(row, *value);
      }
    }
    root->objects().push_back(std::move(child));
  }
  return root;
}

}  // namespace orlo::features::ata_smart
