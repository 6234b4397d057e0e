#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "orlo/core/Attribute.h"
#include "orlo/core/BitField.h"

namespace orlo::features::identify::ata {

// How the value of one row of the identification data is printed. Every number is
// upper-case hexadecimal with leading zeros and without a prefix.
enum class ValueForm {
  Word,             // the 16-bit word, four digits
  WordsAscending,   // each word, four digits, lowest word first
  WordsDescending,  // each word, four digits, highest word first
  U32,              // two words as one little-endian number, eight digits
  U64,              // four words as one little-endian number, sixteen digits
  Bytes,            // the first `byteCount` bytes of the range, in memory order
  Device            // a string attribute of the device; the payload is not looked at
};

struct WordValue {
  ValueForm form;
  uint32_t byteCount = 0;
  orlo::core::Attribute (*deviceAttribute)() = nullptr;
};

// One bit field of a word. The label ("14:8", "15") names the field; the bits read
// and the digits printed follow from it unless a row says otherwise.
struct BitItem {
  BitItem(std::string bits, std::string description);

  std::string bits;
  std::string description;
  core::BitField field;
  unsigned digits;
};

// A field whose label names other bits than the ones it shows.
BitItem readsBits(BitItem item, unsigned high, unsigned low);
// A field printed with another number of digits than its width needs.
BitItem printedWith(BitItem item, unsigned digits);

// One word or range of words ("7-8") of the identification data.
struct WordRow {
  WordRow(std::string words, std::string description, WordValue value,
          std::vector<BitItem> bits = {});

  std::string words;
  std::string description;
  WordValue value;
  std::vector<BitItem> bits;
  unsigned first;
  unsigned last;
};

}  // namespace orlo::features::identify::ata
