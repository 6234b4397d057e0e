#pragma once

#include <string>

// The type tags of an Attribute. Tags are compared as exact, case-sensitive texts.
// "sint8", "double" and "hexValue" have no function here: each is a single case of
// one conversion only and is spelled where it is handled.
namespace orlo::core::attributeType {

inline std::string string() {
  return "string";
}
inline std::string sint16() {
  return "sint16";
}
inline std::string sint32() {
  return "sint32";
}
inline std::string sint64() {
  return "sint64";
}
inline std::string uint8() {
  return "uint8";
}
inline std::string uint16() {
  return "uint16";
}
inline std::string uint32() {
  return "uint32";
}
inline std::string uint64() {
  return "uint64";
}
inline std::string uint128() {
  return "uint128";
}
inline std::string ulong() {
  return "ulong";
}
inline std::string boolean() {
  return "boolean";
}
inline std::string bytePointer() {
  return "bytepointer";
}
inline std::string listUInt64() {
  return "list_uint64";
}
inline std::string vectorOfStrings() {
  return "vectorOfStrings";
}
inline std::string vectorOfPayloads() {
  return "vectorOfPayloads";
}

}  // namespace orlo::core::attributeType
