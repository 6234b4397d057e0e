#pragma once

#include <ctime>

namespace orlo::tools::powershell {

// A zip entry keeps its time as a DOS date and time in local time, which holds
// the years 1980 to 2107 only. Returns the instant to store: `modified` itself
// when its local year fits, 1980-01-01 00:00 local for anything earlier, and
// 2107-12-31 23:59:58 local for anything later.
std::time_t clampToDosRange(std::time_t modified);

}  // namespace orlo::tools::powershell
