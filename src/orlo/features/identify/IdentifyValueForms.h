#pragma once

#include <cstdint>
#include <string>

#include "orlo/core/BitField.h"
#include "orlo/core/Payload.h"

// The ways an Identify decoder shows a value, and the little-endian readers that feed them.
// Every helper stays inside the payload it is given, whatever offset and length it is asked
// for: numbers take bytes past the end as zero, texts and byte strings stop at the end.
namespace orlo::features::identify::nvme::valueForms {

// The unsigned number held in the `length` bytes at `offset`, low byte first (at most 8).
uint64_t littleEndian(const core::Payload& payload, uint32_t offset, uint32_t length);

// The field's bits of the little-endian bit string that starts at byte `offset`, so bit 8
// is bit 0 of the byte after `offset`. At most 64 bits, from the field's low bit up.
uint64_t bits(const core::Payload& payload, uint32_t offset, core::BitField field);

// Unsigned decimal, as short as it goes.
std::string decimal(uint64_t value);

// "0x" and upper-case digits, zero-padded to at least `digits`: the 0xN form, and with no
// `digits` the 0x form.
std::string hex(uint64_t value, uint32_t digits = 0);

// Upper-case digits, zero-padded to at least `digits`, without any prefix.
std::string bareHex(uint64_t value, uint32_t digits = 0);

// "0x" and two digits a byte in stored order, or from the last byte back if `reverse`; a
// range longer than 8 bytes that is all zero reads "0x0".
std::string longHex(const core::Payload& payload, uint32_t offset, uint32_t length, bool reverse);

// A 128-bit number as "0x", the 64 bits at `offset` + 8 and then the 64 bits at `offset`,
// each as 16 digits.
std::string hex128(const core::Payload& payload, uint32_t offset);

// The 16 bytes at `offset` as one unsigned number, in exact decimal.
std::string decimal128(const core::Payload& payload, uint32_t offset);

// Whole degrees Celsius of a temperature in kelvins.
int64_t celsius(uint64_t kelvins);

// A temperature given in kelvins, followed by it in whole degrees Celsius: "310 K (37 °C)".
// 0, which a drive gives for a sensor it does not have, reads "Not reported".
std::string kelvin(uint64_t kelvins);

// The 128-bit count at `offset` of data units, each 1000 blocks of 512 bytes, followed by
// the bytes they make, exactly: "3 (1536000 bytes)".
std::string dataUnits(const core::Payload& payload, uint32_t offset);

// The `length` bytes at `offset` taken as text and cleaned by `sanitize`.
std::string text(const core::Payload& payload, uint32_t offset, uint32_t length);

}  // namespace orlo::features::identify::nvme::valueForms
