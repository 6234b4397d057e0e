#include "plugins/plugin.cliframework/StatusResult.h"

#include <sstream>
#include <utility>

#include "orlo/features/Json.h"
#include "plugins/plugin.cliframework/SimpleNumericResult.h"

namespace plugin::cli {

namespace {
const std::string descriptionName = "Description";
const std::string typeName = "Type";
}  // namespace

StatusResult::StatusResult(std::string message, int32_t type)
    : SimpleResult("Result", std::move(message), type) {}

std::string StatusResult::toCsv() const {
  return name + '\n' + SimpleResult(descriptionName, value).toCsv() +
         SimpleNumericResult(typeName, std::to_string(type)).toCsv();
}

std::string StatusResult::toJson(uint32_t level) const {
  orlo::features::Json json;
  json.name = name;
  orlo::features::Json& description = json.child(descriptionName);
  description.kind = orlo::features::Json::stringKind;
  description.stringValue = value;
  orlo::features::Json& typeValue = json.child(typeName);
  typeValue.kind = orlo::features::Json::signedKind;
  typeValue.signedValue = type;
  std::ostringstream out;
  json.write(out, level);
  return out.str();
}

std::string StatusResult::toXml(uint32_t level) const {
  const std::string tag = xmlTag(name);
  std::ostringstream out;
  out << xmlHeader(level) << indent(level) << '<' << tag << ">\n"
      << SimpleResult(descriptionName, value).toXml(level + 1)
      << SimpleNumericResult(typeName, std::to_string(type)).toXml(level + 1) << indent(level)
      << "</" << tag << ">\n";
  return out.str();
}

}  // namespace plugin::cli
