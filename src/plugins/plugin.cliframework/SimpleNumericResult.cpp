#include "plugins/plugin.cliframework/SimpleNumericResult.h"

#include <sstream>
#include <utility>

#include "orlo/core/Strings.h"
#include "orlo/features/Json.h"

namespace plugin::cli {

SimpleNumericResult::SimpleNumericResult(std::string name, std::string value, int32_t type)
    : SimpleResult(std::move(name), std::move(value), type) {}

std::string SimpleNumericResult::toJson(uint32_t level) const {
  orlo::features::Json json;
  json.name = name;
  json.kind = orlo::features::Json::signedKind;
  json.signedValue = orlo::core::strings::toInteger(value);
  std::ostringstream out;
  json.write(out, level);
  return out.str();
}

}  // namespace plugin::cli
