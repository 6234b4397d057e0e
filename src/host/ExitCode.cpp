#include "host/ExitCode.h"

#include "plugins/plugin.cliframework/SimpleResult.h"

namespace orlo::host {

ExitCode exitCodeFor(const plugin::cli::ResultBase& result) {
  const auto* typed = dynamic_cast<const plugin::cli::SimpleResult*>(&result);
  return typed == nullptr || typed->type == 0 ? ExitCode::success : ExitCode::commandFailed;
}

}  // namespace orlo::host
