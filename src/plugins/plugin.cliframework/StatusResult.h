#pragma once

#include <cstdint>
#include <string>

#include "plugins/plugin.cliframework/SimpleResult.h"

namespace plugin::cli {

// The result of a whole command: a message and a type, rendered as a "Result"
// with a "Description" and a "Type".
class StatusResult : public SimpleResult {
 public:
  static constexpr int32_t successType = 0;  // also a refusal of the SSD checks
  static constexpr int32_t deviceNotFoundType = 1;
  static constexpr int32_t featureFailedType = 2;
  static constexpr int32_t syntaxErrorType = 201;

  StatusResult(std::string message, int32_t type);
  ~StatusResult() override = default;

  std::string toCsv() const override;
  std::string toJson(uint32_t level) const override;
  std::string toXml(uint32_t level) const override;
};

}  // namespace plugin::cli
