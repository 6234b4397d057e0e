#include "host/JsonDocument.h"

#include <algorithm>
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

using core::xml::Keyed;
using core::xml::XmlElement;
using core::xml::XmlObject;

std::string indent(std::size_t level) {
  return std::string(2 * level, ' ');
}

// The keyed elements below `element`: its children, each keyed one itself and each other
// one by the keyed elements below it.
void addKeyedBelow(const XmlElement& element, std::vector<const XmlElement*>& keyed) {
  const auto* object = dynamic_cast<const XmlObject*>(&element);
  if (object == nullptr) return;
  for (const auto* list : {&object->properties(), &object->lists(), &object->objects()}) {
    for (const auto& child : *list) {
      if (child->keyed().key.empty()) {
        addKeyedBelow(*child, keyed);
      } else {
        keyed.push_back(child.get());
      }
    }
  }
}

std::string keyedValue(const XmlElement& element, std::size_t level);

// The members of `element`'s object, each at `level`; the entries of a key are one array
// where the first of them stands.
std::vector<std::string> keyedMembers(const XmlElement& element, std::size_t level) {
  std::vector<const XmlElement*> below;
  addKeyedBelow(element, below);
  std::vector<std::string> members;
  for (std::size_t i = 0; i < below.size(); ++i) {
    const Keyed& keyed = below[i]->keyed();
    std::string member = indent(level) + jsonStringLiteral(keyed.key) + ": ";
    if (!keyed.entry) {
      members.push_back(member + keyedValue(*below[i], level));
      continue;
    }
    const auto first = std::find_if(below.begin(), below.end(), [&](const XmlElement* other) {
      return other->keyed().entry && other->keyed().key == keyed.key;
    });
    if (*first != below[i]) continue;
    member += "[";
    for (auto at = first; at != below.end(); ++at) {
      if (!(*at)->keyed().entry || (*at)->keyed().key != keyed.key) continue;
      member += (at == first ? "\n" : ",\n") + indent(level + 1) + keyedValue(**at, level + 1);
    }
    members.push_back(member + "\n" + indent(level) + "]");
  }
  return members;
}

std::string keyedObject(const std::vector<std::string>& members, std::size_t level) {
  if (members.empty()) return "{}";
  std::string object = "{";
  for (std::size_t i = 0; i < members.size(); ++i) object += (i == 0 ? "\n" : ",\n") + members[i];
  return object + "\n" + indent(level) + "}";
}

// The element's value, written from its first character at `level`.
std::string keyedValue(const XmlElement& element, std::size_t level) {
  const Keyed& keyed = element.keyed();
  std::vector<std::string> members = keyedMembers(element, level + 1);
  if (keyed.kind == Keyed::Kind::kObject) return keyedObject(members, level);
  const std::string scalar =
      keyed.kind == Keyed::Kind::kNumber ? keyed.value : jsonStringLiteral(keyed.value);
  if (members.empty()) return scalar;
  members.insert(members.begin(),
                 indent(level + 1) + jsonStringLiteral(keyed.valueKey) + ": " + scalar);
  return keyedObject(members, level);
}

}  // namespace

std::string keyedDocument(const XmlObject& tree, const std::vector<std::string>& printed) {
  std::vector<std::string> members = keyedMembers(tree, 1);
  if (!printed.empty()) members.push_back(printedMember(printed));
  return objectOf(members);
}

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
