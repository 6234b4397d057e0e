#pragma once

#include <string>

#include "plugins/plugin.cliframework/StatusResult.h"

namespace plugin::cli {

// The result of a command that failed a syntax check: always of type 201.
class SyntaxStatusResult : public StatusResult {
 public:
  explicit SyntaxStatusResult(std::string message);
  ~SyntaxStatusResult() override = default;
};

}  // namespace plugin::cli
