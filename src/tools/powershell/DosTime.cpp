#include "DosTime.h"

namespace orlo::tools::powershell {

namespace {

std::time_t localInstant(int year, int month, int day, int hour, int minute, int second) {
  std::tm local{};
  local.tm_year = year - 1900;
  local.tm_mon = month - 1;
  local.tm_mday = day;
  local.tm_hour = hour;
  local.tm_min = minute;
  local.tm_sec = second;
  local.tm_isdst = -1;
  return std::mktime(&local);
}

}  // namespace

std::time_t clampToDosRange(std::time_t modified) {
  std::tm local{};
  if (localtime_r(&modified, &local) == nullptr || local.tm_year < 1980 - 1900) {
    return localInstant(1980, 1, 1, 0, 0, 0);
  }
  if (local.tm_year > 2107 - 1900) return localInstant(2107, 12, 31, 23, 59, 58);
  return modified;
}

}  // namespace orlo::tools::powershell
