#include "host/PathGuard.h"

#include <cstdio>

#include "orlo/core/Strings.h"
#include "plugins/plugin.cliframework/SharedParts.h"

namespace orlo::host {

namespace {

const std::string shellCharacters = ";&|$`<>()*?[]{}~#\"'\\";

bool isUnsafe(unsigned char byte) {
  return byte == ' ' || byte < 0x20 || byte == 0x7f || byte == ',' ||
         shellCharacters.find(static_cast<char>(byte)) != std::string::npos;
}

std::string describe(unsigned char byte) {
  if (byte == ' ') return "a blank";
  if (byte == ',') return "a comma";
  if (byte < 0x20 || byte == 0x7f) {
    char code[8];
    std::snprintf(code, sizeof(code), "0x%02x", byte);
    return std::string("a control character (") + code + ")";
  }
  return std::string("'") + static_cast<char>(byte) + "'";
}

}  // namespace

const char* const pathRules =
    "- A -source or -destination holding a blank, a control character, a comma or any\n"
    "  of ; & | $ ` < > ( ) * ? [ ] { } ~ # \" ' \\ : the update hands both paths unquoted\n"
    "  to /bin/sh, which would read those characters, and on to Compress-Archive, which\n"
    "  would split a path at a comma.";

bool isGuardedPath(const std::string& name) {
  return orlo::core::strings::iequals(name, plugin::cli::sourcePart.name) ||
         orlo::core::strings::iequals(name, plugin::cli::destinationPart.name);
}

std::optional<std::string> findUnsafePath(const plugin::cli::ParsedCommand& command) {
  for (const auto* list : {&command.options, &command.targets}) {
    for (const auto& argument : list->elements) {
      if (!isGuardedPath(argument->name)) continue;
      for (const char c : argument->value) {
        const auto byte = static_cast<unsigned char>(c);
        if (!isUnsafe(byte)) continue;
        const std::string why = byte == ',' ? ", at which Compress-Archive would split it"
                                            : ", which the shell would read";
        return "The path of " + argument->name + " holds " + describe(byte) + why +
               "; orlo takes no path with a blank, a control character, a comma or any of "
               "; & | $ ` < > ( ) * ? [ ] { } ~ # \" ' \\ in it.";
      }
    }
  }
  return std::nullopt;
}

}  // namespace orlo::host
