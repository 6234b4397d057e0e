#include "plugins/plugin.cliframework/SimpleResult.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "orlo/features/Json.h"

namespace plugin::cli {

SimpleResult::SimpleResult(std::string name, std::string value, int32_t type)
    : ResultBase(std::move(name), std::move(value)), type(type) {}

std::string SimpleResult::toText(uint32_t level) const {
  std::ostringstream out;
  out << indent(level) << name << ": " << value << '\n';
  return out.str();
}

std::string SimpleResult::toCsv() const {
  // One record a line: line feeds in the value become blanks. Commas are not
  // quoted.
  std::string flat = value;
  std::replace(flat.begin(), flat.end(), '\n', ' ');
  std::ostringstream out;
  out << name << ',' << flat << '\n';
  return out.str();
}

std::string SimpleResult::toJson(uint32_t level) const {
  orlo::features::Json json(value);
  json.name = name;
  std::ostringstream out;
  json.write(out, level);
  return out.str();
}

std::string SimpleResult::toXml(uint32_t level) const {
  const std::string tag = xmlTag(name);
  std::ostringstream out;
  out << xmlHeader(level) << indent(level) << '<' << tag << '>' << value << "</" << tag << ">\n";
  return out.str();
}

}  // namespace plugin::cli
