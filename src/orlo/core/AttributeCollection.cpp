#include "orlo/core/AttributeCollection.h"

#include "orlo/core/Strings.h"

namespace orlo::core {

void AttributeCollection::add(const Attribute& attribute) {
  entries_[attribute.name] = attribute;
}

namespace {

template <typename Map>
auto findIgnoringCase(Map& entries, const std::string& name) -> decltype(entries.begin()) {
  for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
    if (strings::iequals(entry->first, name)) return entry;
  }
  return entries.end();
}

}  // namespace

AttributeCollection::iterator AttributeCollection::find(const std::string& name) {
  return findIgnoringCase(entries_, name);
}

AttributeCollection::const_iterator AttributeCollection::find(const std::string& name) const {
  return findIgnoringCase(entries_, name);
}

void writeString(AttributeCollection& collection, const Attribute& descriptor,
                 const std::string& text) {
  collection.add(Attribute(descriptor, text));
}

void writeUInt8(AttributeCollection& collection, const Attribute& descriptor, uint8_t value) {
  Attribute attribute(descriptor);
  attribute.setUInt8(value);
  collection.add(attribute);
}

void writeUInt32(AttributeCollection& collection, const Attribute& descriptor, uint32_t value) {
  collection.add(Attribute(descriptor, value));
}

namespace {

uint64_t readNumber(const AttributeCollection& collection, const Attribute& descriptor,
                    std::size_t width) {
  const auto found = collection.find(descriptor.name);
  return found == collection.end() ? 0 : found->second.storedNumber(width);
}

}  // namespace

bool readBool(const AttributeCollection& collection, const Attribute& descriptor) {
  const auto found = collection.find(descriptor.name);
  return found != collection.end() && found->second.asBool();
}

uint8_t readUInt8(const AttributeCollection& collection, const Attribute& descriptor) {
  return static_cast<uint8_t>(readNumber(collection, descriptor, 1));
}

uint16_t readUInt16(const AttributeCollection& collection, const Attribute& descriptor) {
  return static_cast<uint16_t>(readNumber(collection, descriptor, 2));
}

uint32_t readUInt32(const AttributeCollection& collection, const Attribute& descriptor) {
  return static_cast<uint32_t>(readNumber(collection, descriptor, 4));
}

uint64_t readUInt64(const AttributeCollection& collection, const Attribute& descriptor) {
  return readNumber(collection, descriptor, 8);
}

std::string readString(const AttributeCollection& collection, const Attribute& descriptor) {
  return getString(collection, descriptor.name);
}

std::string getString(const AttributeCollection& collection, std::string name) {
  const auto found = collection.find(name);
  return found == collection.end() ? std::string() : found->second.storedText();
}

Attribute readOrDefault(const AttributeCollection& collection, const Attribute& descriptor) {
  const auto found = collection.find(descriptor.name);
  return found == collection.end() ? descriptor : found->second;
}

bool hasAttribute(const AttributeCollection& collection, const Attribute& descriptor) {
  return collection.find(descriptor.name) != collection.end();
}

}  // namespace orlo::core
