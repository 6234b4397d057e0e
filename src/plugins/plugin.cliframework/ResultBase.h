#pragma once

#include <cstdint>
#include <string>

namespace plugin::cli {

// The outcome of a command as it goes back to the host, which picks the format
// and calls the render for it. Every render indents two blanks a level.
class ResultBase {
 public:
  ResultBase(std::string name, std::string value);
  virtual ~ResultBase() = default;

  virtual std::string toText(uint32_t level) const = 0;
  virtual std::string toCsv() const = 0;
  virtual std::string toJson(uint32_t level) const = 0;
  virtual std::string toXml(uint32_t level) const = 0;

  std::string name;
  std::string value;

 protected:
  static std::string indent(uint32_t level);
  // The XML declaration that opens a document: written at level 0 only.
  static std::string xmlHeader(uint32_t level);
  // `name` made fit for a tag: blanks become "_", ":" and "/" become "-".
  // Nothing else is escaped, in the tag or in a value.
  static std::string xmlTag(const std::string& name);
};

}  // namespace plugin::cli
