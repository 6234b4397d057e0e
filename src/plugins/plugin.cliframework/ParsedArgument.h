#pragma once

#include <cstdint>
#include <string>

namespace plugin::cli {

// One option, target or property as the host's parser found it on the command
// line.
struct ParsedArgument {
  uint32_t kind = 0;  // the part kind of CommandSpecPart; the host's own
  std::string name;   // with its dash for options
  std::string value;  // empty if none was given
};

}  // namespace plugin::cli
