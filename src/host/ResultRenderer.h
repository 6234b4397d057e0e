#pragma once

#include <string>
#include <vector>

#include "plugins/plugin.cliframework/ResultBase.h"

namespace orlo::host {

// The result in one of the formats "text", "json", "jsontree", "xml" or "csv", at the top
// level, ending with a line feed. Both JSON forms are documents of their own, holding
// `printed` (see JsonDocument.h): "json" gives a decoded tree in its keyed form, "jsontree"
// as labelled elements.
std::string render(const plugin::cli::ResultBase& result, const std::string& format,
                   const std::vector<std::string>& printed = {});

// Whether the format is one of the JSON forms.
bool isJson(const std::string& format);

}  // namespace orlo::host
