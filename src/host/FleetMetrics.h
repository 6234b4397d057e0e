#pragma once

#include <memory>
#include <string>

#include "devices/DriveChoice.h"
#include "plugins/plugin.cliframework/ParsedCommand.h"
#include "plugins/plugin.cliframework/ResultBase.h"

namespace orlo::host {

// orlo metrics [-ssd X] [-file PATH]: the health of the drive that "-ssd" names, or of
// every drive that `orlo show -ssd` lists, in the Prometheus text format (see
// PrometheusText.h). A drive that cannot be opened or asked is there with
// orlo_drive_up 0, and the reason is said on the standard error, so that one bad drive
// does not hide the others. Fails (a result of type 1) when "-ssd" names no drive or one
// that cannot be opened, when no drive is found, and when `fileOption` cannot be written.
// Without `fileOption` the result is the text itself (in text output, exactly the text);
// with it, the text is put at that path whole (see MetricsFile.h) and the result says
// for how many drives.
std::shared_ptr<plugin::cli::ResultBase> writeMetrics(const plugin::cli::ParsedCommand& command,
                                                      const orlo::devices::DriveOptions& options,
                                                      const std::string& fileOption);

}  // namespace orlo::host
