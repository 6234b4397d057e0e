#pragma once

#include <cstdint>
#include <string>

#include "plugins/plugin.cliframework/ResultBase.h"

namespace plugin::cli {

// A name and a text value.
class SimpleResult : public ResultBase {
 public:
  SimpleResult(std::string name, std::string value, int32_t type = 0);
  ~SimpleResult() override = default;

  std::string toText(uint32_t level) const override;
  std::string toCsv() const override;
  std::string toJson(uint32_t level) const override;
  std::string toXml(uint32_t level) const override;

  int32_t type;
};

}  // namespace plugin::cli
