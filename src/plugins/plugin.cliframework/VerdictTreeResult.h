#pragma once

#include <memory>

#include "plugins/plugin.cliframework/XmlTreeResult.h"

namespace plugin::cli {

// A decoded tree that carries a drive's verdict on its own health as well, so that the
// host can give a failing drive an exit code of its own, for scripts and monitoring.
class VerdictTreeResult : public XmlTreeResult {
 public:
  VerdictTreeResult(std::unique_ptr<orlo::core::xml::XmlObject> tree, bool driveHealthy);
  ~VerdictTreeResult() override = default;

  bool driveHealthy;
};

}  // namespace plugin::cli
