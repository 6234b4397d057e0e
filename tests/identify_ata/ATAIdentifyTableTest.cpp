#include <gtest/gtest.h>

#include <string>

#include "orlo/features/identify/ATAIdentifyTable.h"

namespace {

using orlo::features::identify::ata::identifyDeviceWords;

// The bits a label names: "14:8" is 14 down to 8, "15" the one bit.
std::pair<unsigned, unsigned> labelled(const std::string& bits) {
  const auto colon = bits.find(':');
  if (colon == std::string::npos) return {std::stoul(bits), std::stoul(bits)};
  return {std::stoul(bits.substr(0, colon)), std::stoul(bits.substr(colon + 1))};
}

// The rows follow one another over all 256 words, and the fields of a word follow
// one another from bit 15 down to bit 0, as their labels say: a row or a field left
// out or written twice shows here, whatever the decoder prints.
TEST(ATAIdentifyTable, CoversEveryWordAndEveryBitOnce) {
  unsigned nextWord = 0;
  for (const auto& row : identifyDeviceWords()) {
    EXPECT_EQ(row.first, nextWord) << "row " << row.words;
    EXPECT_LE(row.first, row.last) << "row " << row.words;
    nextWord = row.last + 1;
    if (row.bits.empty()) continue;
    int nextBit = 15;
    for (const auto& item : row.bits) {
      const auto [high, low] = labelled(item.bits);
      EXPECT_EQ(static_cast<int>(high), nextBit) << "word " << row.words << " bits " << item.bits;
      EXPECT_LE(low, high) << "word " << row.words << " bits " << item.bits;
      nextBit = static_cast<int>(low) - 1;
    }
    EXPECT_EQ(nextBit, -1) << "word " << row.words;
  }
  EXPECT_EQ(nextWord, 256u);
}

}  // namespace
