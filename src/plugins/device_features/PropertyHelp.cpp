#include "plugins/device_features/PropertyHelp.h"

namespace plugin::cli {

void describeProperty(CommandSpec& spec, const orlo::core::Attribute& descriptor,
                      const std::string& valueName, const std::string& description) {
  const auto part = spec.properties.find(descriptor.name);
  if (part == nullptr) return;
  part->valueName = valueName;
  part->description = description;
}

}  // namespace plugin::cli
