#include "host/ProviderPath.h"

#include <cstdlib>
#include <string>

namespace orlo::host {

void putFirstOnPath(const std::filesystem::path& folder) {
  const char* current = std::getenv("PATH");
  // Without a PATH the shell would search its own default, which this keeps.
  const std::string rest = current != nullptr ? current : "/usr/local/bin:/usr/bin:/bin";
  setenv("PATH", (folder.string() + ":" + rest).c_str(), 1);
}

}  // namespace orlo::host
