#pragma once

#include <cstdint>
#include <string>

#include "plugins/plugin.cliframework/SimpleResult.h"

namespace plugin::cli {

// A SimpleResult whose value text is a number: JSON writes it unquoted.
class SimpleNumericResult : public SimpleResult {
 public:
  SimpleNumericResult(std::string name, std::string value, int32_t type = 0);
  ~SimpleNumericResult() override = default;

  std::string toJson(uint32_t level) const override;
};

}  // namespace plugin::cli
