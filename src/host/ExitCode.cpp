#include "host/ExitCode.h"

#include "plugins/plugin.cliframework/SimpleResult.h"
#include "plugins/plugin.cliframework/VerdictTreeResult.h"

namespace orlo::host {

ExitCode exitCodeFor(const plugin::cli::ResultBase& result) {
  if (const auto* verdict = dynamic_cast<const plugin::cli::VerdictTreeResult*>(&result)) {
    return verdict->driveHealthy ? ExitCode::success : ExitCode::driveUnhealthy;
  }
  const auto* typed = dynamic_cast<const plugin::cli::SimpleResult*>(&result);
  return typed == nullptr || typed->type == 0 ? ExitCode::success : ExitCode::commandFailed;
}

}  // namespace orlo::host
