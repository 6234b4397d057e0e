#include "plugins/plugin.cliframework/SyntaxStatusResult.h"

#include <utility>

namespace plugin::cli {

SyntaxStatusResult::SyntaxStatusResult(std::string message)
    : StatusResult(std::move(message), syntaxErrorType) {}

}  // namespace plugin::cli
