#pragma once

#include <string>

#include "orlo/core/Attribute.h"
#include "plugins/plugin.cliframework/CommandSpec.h"

namespace plugin::cli {

// Gives the property that addFeatureProperties declared for `descriptor` a value
// name and a line of help of its own, in place of the attribute's stored text and
// display name.
void describeProperty(CommandSpec& spec, const orlo::core::Attribute& descriptor,
                      const std::string& valueName, const std::string& description);

}  // namespace plugin::cli
