#pragma once

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace orlo::features {

// A small tree of named values and its writer. The system writes JSON but never
// reads it; the written form is this system's own and is not always valid JSON
// (a named root writes its key, control characters keep their raw byte).
class Json {
 public:
  static constexpr uint32_t objectKind = 0;
  static constexpr uint32_t unsignedKind = 1;
  static constexpr uint32_t signedKind = 2;
  static constexpr uint32_t floatKind = 3;
  static constexpr uint32_t stringKind = 4;
  static constexpr uint32_t arrayKind = 5;

  Json() = default;
  explicit Json(std::string value);

  // The first child with exactly this name (case matters), made and appended
  // if there is none.
  Json& child(const std::string& childName);

  // Writes the node and its children at `level`, two blanks a level. The caller
  // ends the line before it; no line feed is written after the whole.
  void write(std::ostream& out, uint32_t level) const;

  static std::string escape(const std::string& text);

  std::string name;
  std::vector<std::shared_ptr<Json>> children;
  uint32_t kind = objectKind;
  uint64_t unsignedValue = 0;
  int64_t signedValue = -1;
  std::string stringValue;
  double floatValue = 0;

 private:
  void writeChildren(std::ostream& out, uint32_t level, char open, char close) const;
};

}  // namespace orlo::features
