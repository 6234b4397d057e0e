#include "plugins/plugin.cliframework/ResultMakers.h"

#include "plugins/plugin.cliframework/StatusResult.h"
#include "plugins/plugin.cliframework/SyntaxStatusResult.h"

namespace plugin::cli {

std::shared_ptr<ResultBase> makeStatusResult(const std::string& message) {
  return makeStatusResult(message, StatusResult::successType);
}

std::shared_ptr<ResultBase> makeStatusResult(const std::string& message, int32_t type) {
  return std::make_shared<StatusResult>(message, type);
}

std::shared_ptr<ResultBase> makeSyntaxStatusResult(const std::string& message) {
  return std::make_shared<SyntaxStatusResult>(message);
}

}  // namespace plugin::cli
