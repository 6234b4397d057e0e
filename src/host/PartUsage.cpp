#include "host/PartUsage.h"

namespace orlo::host {

using plugin::cli::CommandSpecPart;

std::string usageOf(const CommandSpecPart& part) {
  if (part.partType.kind == CommandSpecPart::propertyKind) {
    return part.name + "=<" + part.valueName + ">";
  }
  return part.valueName.empty() ? part.name : part.name + " <" + part.valueName + ">";
}

std::string describePart(const CommandSpecPart& part) {
  switch (part.partType.kind) {
    case CommandSpecPart::propertyKind:
      return "property " + usageOf(part);
    case CommandSpecPart::targetKind:
      return "target " + usageOf(part);
    default:
      return "option " + usageOf(part);
  }
}

}  // namespace orlo::host
