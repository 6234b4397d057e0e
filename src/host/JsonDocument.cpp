#include "host/JsonDocument.h"

#include <cstdio>

#include "plugins/plugin.cliframework/JsonStringLiteral.h"
#include "plugins/plugin.cliframework/Utf8Sequence.h"

namespace orlo::host {

namespace {

using plugin::cli::jsonStringLiteral;

// The letter of a JSON escape for a byte that the toolkit's writer puts raw behind a
// backslash, or 0 for a byte it escapes as JSON does.
char escapeLetter(char byte) {
  switch (byte) {
    case '\b':
      return 'b';
    case '\t':
      return 't';
    case '\n':
      return 'n';
    case '\f':
      return 'f';
    case '\r':
      return 'r';
    default:
      return 0;
  }
}

// The writer's text with its strings made valid JSON; the rest is left as it is.
std::string strictJson(const std::string& written) {
  std::string strict;
  strict.reserve(written.size());
  bool inString = false;
  for (std::size_t at = 0; at < written.size();) {
    const char byte = written[at];
    if (!inString || byte == '"') {
      inString = inString != (byte == '"');
      strict += byte;
      ++at;
    } else if (byte == '\\' && at + 1 < written.size()) {
      const char letter = escapeLetter(written[at + 1]);
      strict += byte;
      strict += letter != 0 ? letter : written[at + 1];
      at += 2;
    } else if (const std::size_t length = plugin::cli::utf8SequenceLength(written, at)) {
      strict.append(written, at, length);
      at += length;
    } else {
      char code[7];
      std::snprintf(code, sizeof code, "\\u%04x", static_cast<unsigned char>(byte));
      strict += code;
      ++at;
    }
  }
  return strict;
}

std::string printedMember(const std::vector<std::string>& printed) {
  std::string member = "  \"Output\": [";
  for (std::size_t i = 0; i < printed.size(); ++i) {
    member += (i == 0 ? "\n    " : ",\n    ") + jsonStringLiteral(printed[i]);
  }
  return member + (printed.empty() ? "]" : "\n  ]");
}

// An object of `members`, each a line (or more) indented by two blanks.
std::string objectOf(const std::vector<std::string>& members) {
  std::string object = "{";
  for (std::size_t i = 0; i < members.size(); ++i) object += (i == 0 ? "\n" : ",\n") + members[i];
  return object + "\n}\n";
}

}  // namespace

std::string jsonDocument(const plugin::cli::ResultBase& result,
                         const std::vector<std::string>& printed) {
  std::string object = strictJson(result.toJson(0));
  if (object.empty() || object.front() != '{') {
    std::vector<std::string> members = {strictJson(result.toJson(1))};
    if (!printed.empty()) members.push_back(printedMember(printed));
    return objectOf(members);
  }
  if (printed.empty()) return object + "\n";
  // The object's members stand between its first "{" and its last "}".
  object.erase(object.find_last_not_of(" \n", object.rfind('}') - 1) + 1);
  const bool hasMembers = object.back() != '{';
  return object + (hasMembers ? ",\n" : "\n") + printedMember(printed) + "\n}\n";
}

std::string jsonFailure(const std::string& message, ExitCode code,
                        const std::vector<std::string>& printed) {
  std::vector<std::string> members = {"  \"Error\": " + jsonStringLiteral(message),
                                      "  \"ExitCode\": " + std::to_string(static_cast<int>(code))};
  if (!printed.empty()) members.push_back(printedMember(printed));
  return objectOf(members);
}

std::string jsonHelp(const std::string& help) {
  return objectOf({"  \"Help\": " + jsonStringLiteral(help)});
}

}  // namespace orlo::host
