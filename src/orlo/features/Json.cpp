#include "orlo/features/Json.h"

#include <cstdio>
#include <utility>

namespace orlo::features {

Json::Json(std::string value) : kind(stringKind), stringValue(std::move(value)) {}

Json& Json::child(const std::string& childName) {
  for (const auto& held : children) {
    if (held->name == childName) return *held;
  }
  auto made = std::make_shared<Json>();
  made->name = childName;
  children.push_back(made);
  return *made;
}

void Json::write(std::ostream& out, uint32_t level) const {
  out << std::string(2 * level, ' ');
  if (!name.empty()) out << '"' << name << "\": ";
  if (kind == arrayKind) {
    writeChildren(out, level, '[', ']');
  } else if (!children.empty() || kind == objectKind) {
    // A scalar with children is written as an object, without its own value.
    writeChildren(out, level, '{', '}');
  } else if (kind == unsignedKind) {
    out << unsignedValue;
  } else if (kind == signedKind) {
    out << signedValue;
  } else if (kind == floatKind) {
    out << floatValue;
  } else if (kind == stringKind) {
    out << '"' << escape(stringValue) << '"';
  }
}

void Json::writeChildren(std::ostream& out, uint32_t level, char open, char close) const {
  out << open;
  for (size_t i = 0; i < children.size(); ++i) {
    out << '\n';
    children[i]->write(out, level + 1);
    if (i + 1 < children.size()) out << ',';
  }
  out << '\n' << std::string(2 * level, ' ') << close;
}

std::string Json::escape(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    switch (byte) {
      // These keep their own byte behind the backslash: a line feed is written
      // as a backslash and a real line feed, not as "\n".
      case '\b':
      case '\t':
      case '\n':
      case '\f':
      case '\r':
      case '"':
      case '\\':
        escaped += '\\';
        escaped += c;
        break;
      default:
        if (byte < 0x20) {
          char code[7];
          std::snprintf(code, sizeof code, "\\u%04x", byte);
          escaped += code;
        } else {
          escaped += c;
        }
    }
  }
  return escaped;
}

}  // namespace orlo::features
