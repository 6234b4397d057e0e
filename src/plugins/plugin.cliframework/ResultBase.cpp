#include "plugins/plugin.cliframework/ResultBase.h"

#include <utility>

namespace plugin::cli {

ResultBase::ResultBase(std::string name, std::string value)
    : name(std::move(name)), value(std::move(value)) {}

std::string ResultBase::indent(uint32_t level) {
  return std::string(2 * level, ' ');
}

std::string ResultBase::xmlHeader(uint32_t level) {
  return level == 0 ? "<?xml version=\"1.0\" standalone=\"yes\" ?>\n" : "";
}

std::string ResultBase::xmlTag(const std::string& name) {
  std::string tag = name;
  for (char& c : tag) {
    if (c == ' ') {
      c = '_';
    } else if (c == ':' || c == '/') {
      c = '-';
    }
  }
  return tag;
}

}  // namespace plugin::cli
