#pragma once

#include <string>

#include "orlo/core/Status.h"

namespace orlo::host {

// Puts `text` at `path` whole or not at all, so that whatever reads the file (such as
// node_exporter's textfile collector, which reads `*.prom` whenever it is scraped) finds
// the old text or the new one, never a part: the text goes into a temporary file in the
// same directory (`.NAME.XXXXXX`, which `*.prom` does not match), is flushed to the disk,
// given mode 0644 (readable by an exporter that runs as another user) and renamed over
// `path`. SIGINT, SIGTERM and SIGHUP wait while the temporary file exists and act once it
// is renamed or removed, so that they leave nothing behind.
// Fails with notRegularFile when `path` names a directory, FIFO, socket or device, and
// with fileNotWritten, saying which step failed and why (a missing directory, a full
// disk, no permission), with the temporary file removed and `path` as it was.
core::Status writeFileAtomically(const std::string& path, const std::string& text);

}  // namespace orlo::host
