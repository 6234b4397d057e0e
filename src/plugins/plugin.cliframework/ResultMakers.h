#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "plugins/plugin.cliframework/ResultBase.h"

namespace plugin::cli {

// A StatusResult of type 0.
std::shared_ptr<ResultBase> makeStatusResult(const std::string& message);
std::shared_ptr<ResultBase> makeStatusResult(const std::string& message, int32_t type);
std::shared_ptr<ResultBase> makeSyntaxStatusResult(const std::string& message);

}  // namespace plugin::cli
