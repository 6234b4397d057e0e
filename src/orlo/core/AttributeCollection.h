#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>

#include "orlo/core/Attribute.h"

namespace orlo::core {

// Attributes keyed by name. Two comparison rules live side by side on purpose:
// `add` goes by the exact key, so "Serial" and "serial" are two entries, while
// `find` ignores case and gives the first match in the map's own iteration order.
// No order is kept or imposed.
class AttributeCollection {
 public:
  using Map = std::unordered_map<std::string, Attribute>;
  using iterator = Map::iterator;
  using const_iterator = Map::const_iterator;

  // Inserts a new entry, or replaces every field of the entry under the same exact key.
  void add(const Attribute& attribute);

  iterator find(const std::string& name);
  const_iterator find(const std::string& name) const;

  iterator begin() { return entries_.begin(); }
  iterator end() { return entries_.end(); }
  const_iterator begin() const { return entries_.begin(); }
  const_iterator end() const { return entries_.end(); }
  std::size_t size() const { return entries_.size(); }
  bool empty() const { return entries_.empty(); }

 private:
  Map entries_;
};

// Writers: each stores a copy of the descriptor with a new value, so that a value
// always reaches the collection under the descriptor's name, label and type.
void writeString(AttributeCollection& collection, const Attribute& descriptor,
                 const std::string& text);
// One byte; serves "boolean" and "uint8" descriptors alike.
void writeUInt8(AttributeCollection& collection, const Attribute& descriptor, uint8_t value);
void writeUInt32(AttributeCollection& collection, const Attribute& descriptor, uint32_t value);

// Readers: each looks the descriptor's name up without regard to case and never
// fails. A missing attribute and an empty value both give the default (false, 0 or
// ""). The width is the reader's, not the tag's: a narrower reader takes the low
// bytes, a wider one zero-extends.
bool readBool(const AttributeCollection& collection, const Attribute& descriptor);
uint8_t readUInt8(const AttributeCollection& collection, const Attribute& descriptor);
uint16_t readUInt16(const AttributeCollection& collection, const Attribute& descriptor);
uint32_t readUInt32(const AttributeCollection& collection, const Attribute& descriptor);
uint64_t readUInt64(const AttributeCollection& collection, const Attribute& descriptor);
std::string readString(const AttributeCollection& collection, const Attribute& descriptor);
// As readString, for a plain name.
std::string getString(const AttributeCollection& collection, std::string name);
// A copy of the attribute under the descriptor's name, or of the descriptor itself.
Attribute readOrDefault(const AttributeCollection& collection, const Attribute& descriptor);
// True when an attribute of that name exists, whatever its value.
bool hasAttribute(const AttributeCollection& collection, const Attribute& descriptor);

}  // namespace orlo::core
