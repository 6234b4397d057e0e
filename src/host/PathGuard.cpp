#include "host/PathGuard.h"

#include <cstdio>

#include "orlo/core/Strings.h"
#include "plugins/plugin.cliframework/SharedParts.h"

namespace orlo::host {

namespace {

const std::string shellCharacters = ";&|$`<>()*?[]{}~#\"'\\";

bool isGuarded(const std::string& name) {
  return orlo::core::strings::iequals(name, plugin::cli::sourcePart.name) ||
         orlo::core::strings::iequals(name, plugin::cli::destinationPart.name);
}

bool isUnsafe(unsigned char byte) {
  return byte == ' ' || byte < 0x20 || byte == 0x7f ||
         shellCharacters.find(static_cast<char>(byte)) != std::string::npos;
}

std::string describe(unsigned char byte) {
  if (byte == ' ') return "a blank";
  if (byte < 0x20 || byte == 0x7f) {
    char code[8];
    std::snprintf(code, sizeof(code), "0x%02x", byte);
    return std::string("a control character (") + code + ")";
  }
  return std::string("'") + static_cast<char>(byte) + "'";
}

}  // namespace

std::optional<std::string> findUnsafePath(const plugin::cli::ParsedCommand& command) {
  for (const auto* list : {&command.options, &command.targets}) {
    for (const auto& argument : list->elements) {
      if (!isGuarded(argument->name)) continue;
      for (const char c : argument->value) {
        const auto byte = static_cast<unsigned char>(c);
        if (!isUnsafe(byte)) continue;
        return "The path of " + argument->name + " holds " + describe(byte) +
               ", which the shell would read; orlo takes no path with a blank, a control "
               "character or any of ; & | $ ` < > ( ) * ? [ ] { } ~ # \" ' \\ in it.";
      }
    }
  }
  return std::nullopt;
}

}  // namespace orlo::host
