#pragma once

#include <optional>
#include <string>

namespace orlo::tools::powershell {

// What a step reports: empty when it succeeded, otherwise the line to show on
// standard error.
using Error = std::optional<std::string>;

}  // namespace orlo::tools::powershell
