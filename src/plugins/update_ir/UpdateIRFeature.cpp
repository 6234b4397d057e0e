#include "plugins/update_ir/UpdateIRFeature.h"

#include <string>

#include "plugins/update_ir/UpdateZip.h"

namespace plugin::cli {

orlo::core::Status UpdateIRFeature::run() {
  // "-vv" is not declared by the command; it counts only when the host lets it through.
  gVerbosity = 0;
  if (attributes.find("-vv") != attributes.end()) {
    gVerbosity = 2;
  } else if (attributes.find("-v") != attributes.end()) {
    gVerbosity = 1;
  }
  const std::string source = orlo::core::getString(attributes, "-source");
  const std::string destination = orlo::core::getString(attributes, "-destination");
  return updateZip(source, destination);
}

}  // namespace plugin::cli
