#pragma once

#include <string>

#include "plugins/plugin.cliframework/ResultBase.h"

namespace orlo::host {

// The result in one of the formats "text", "json", "xml" or "csv", at the top level,
// ending with a line feed; in "json" a document of its own (see JsonDocument.h).
std::string render(const plugin::cli::ResultBase& result, const std::string& format);

}  // namespace orlo::host
