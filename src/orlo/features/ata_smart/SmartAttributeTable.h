#pragma once

#include <cstdint>

// What is known of SMART attributes across drives: the names of the well-known ones
// and the form in which each one's raw value is usually read, and the meaning of the
// flag bits. An attribute not listed has no name and a 48-bit raw count.
namespace orlo::features::ata_smart {

// How the six raw bytes of an attribute are read, lowest byte first.
enum class RawForm {
  Count48,  // all six bytes, one counter
  Count32,  // bytes 3:0; the higher bytes hold other things on many drives
  Celsius,  // byte 0, degrees Celsius; the higher bytes often hold the lowest and highest
};

struct KnownAttribute {
  uint8_t id;
  const char* name;
  RawForm form;
};

// The row of `id`, or null for an attribute without a well-known name.
const KnownAttribute* knownAttribute(uint8_t id);

struct FlagBit {
  uint16_t mask;
  const char* name;
};

inline constexpr uint16_t kPrefailureFlag = 0x0001;

inline constexpr FlagBit kFlagBits[] = {
    {kPrefailureFlag, "Pre-failure"},  // clear: advisory
    {0x0002, "Online Collection"},    {0x0004, "Performance"},     {0x0008, "Error Rate"},
    {0x0010, "Event Count"},          {0x0020, "Self-preserving"},
};

}  // namespace orlo::features::ata_smart
