#pragma once

#include <cstdint>
#include <string>
#include <utility>

namespace plugin::cli {

// What a part of a command is. The lists hold plain CommandSpecPart copies, so
// once a derived part has been copied in, `kind` alone tells what it was.
struct PartType {
  uint32_t kind = 0;
  std::string text;
};

// One option, target or property of a command, as the host's parser and help
// read it.
class CommandSpecPart {
 public:
  static constexpr uint32_t plainKind = 0;
  static constexpr uint32_t optionKind = 3;
  static constexpr uint32_t targetKind = 4;
  static constexpr uint32_t propertyKind = 5;

  CommandSpecPart(std::string name, bool required, std::string valueName, bool valueRequired,
                  std::string description, bool commonOption, std::string shortName);
  CommandSpecPart(const CommandSpecPart&) = default;
  CommandSpecPart& operator=(const CommandSpecPart&) = default;
  virtual ~CommandSpecPart() = default;

  PartType partType;
  std::string name;
  std::string shortName;
  bool required;
  std::string valueName;
  bool valueRequired;
  bool commonOption;
  std::string description;
};

}  // namespace plugin::cli
