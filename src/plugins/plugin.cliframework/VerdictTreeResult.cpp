#include "plugins/plugin.cliframework/VerdictTreeResult.h"

#include <utility>

namespace plugin::cli {

VerdictTreeResult::VerdictTreeResult(std::unique_ptr<orlo::core::xml::XmlObject> tree,
                                     bool driveHealthy)
    : XmlTreeResult(std::move(tree)), driveHealthy(driveHealthy) {}

}  // namespace plugin::cli
