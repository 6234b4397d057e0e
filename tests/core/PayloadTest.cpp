#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <regex>
#include <stdexcept>

#include "orlo/core/Memory.h"
#include "orlo/core/Payload.h"
#include "orlo/core/Status.h"

using orlo::core::Payload;
using orlo::core::Status;
using orlo::core::memory::memCopy;

namespace {
using Page = std::array<uint8_t, 4096>;

bool allZero(const uint8_t* bytes, size_t size) {
  return std::all_of(bytes, bytes + size, [](uint8_t b) { return b == 0; });
}
}  // namespace

TEST(Payload, IsAlignedZeroFilledAndBoundsChecked) {
  const Payload five(5);
  EXPECT_EQ(five.size(), 5u);
  EXPECT_EQ(reinterpret_cast<uintptr_t>(five.data()) % 4096, 0u);
  EXPECT_TRUE(allZero(five.data(), 5));
  EXPECT_NO_THROW(five[4]);
  try {
    five[5];
    ADD_FAILURE() << "no throw";
  } catch (const Status& status) {
    EXPECT_EQ(status, Status::outOfBounds());
  }

  const Payload empty(0);
  EXPECT_EQ(empty.size(), 0u);
  EXPECT_THROW(empty[0], Status);
  EXPECT_EQ(Payload().data(), nullptr);
  EXPECT_EQ(Payload("abc", 0).size(), 0u);
}

TEST(Payload, CopiesShareOneBuffer) {
  Payload original("\x01\x02\x03", 3);
  {
    Payload copy = original;
    copy[0] = 9;
    EXPECT_EQ(copy.data(), original.data());
  }
  EXPECT_EQ(original[0], 9);  // the buffer outlives a dropped copy

  const Payload deep(original.data(), original.size());
  EXPECT_NE(deep.data(), original.data());
  EXPECT_EQ(std::memcmp(deep.data(), "\x09\x02\x03", 3), 0);
}

TEST(Payload, SafeCastChecksTheWholeStructure) {
  EXPECT_THROW(Payload(4095).safeCast<Page>(), std::out_of_range);
  const Payload page(4096);
  EXPECT_EQ(page.safeCast<Page>()->data(), page.data());
  EXPECT_EQ(reinterpret_cast<uint8_t*>(page.safeCast<uint32_t>(4092)), page.data() + 4092);
  try {
    page.safeCast<Page>(1);
    ADD_FAILURE() << "no throw";
  } catch (const std::out_of_range& error) {
    EXPECT_EQ(std::string(error.what()),
              "Cast (with offsets) with payload data out of range!\nPayload size: 4096\n"
              "Structure Name: " +
                  std::string(typeid(Page*).name()) + "\nStructure Size: 4096\nOffset: 1");
  }
}

TEST(Memory, MemCopyResultsAndReport) {
  const uint8_t source[4] = {1, 2, 3, 4};
  uint8_t destination[4] = {};
  EXPECT_EQ(memCopy(destination, 4, source, 4), 0);
  EXPECT_EQ(std::memcmp(destination, source, 4), 0);

  uint8_t untouched[4] = {};
  testing::internal::CaptureStderr();
  EXPECT_EQ(memCopy(untouched, 3, source, 4), 34);
  EXPECT_TRUE(allZero(untouched, 4));
  const std::string report = testing::internal::GetCapturedStderr();
  EXPECT_TRUE(std::regex_match(report, std::regex(R"(\[fatal\] Memory\.cpp\(\d+\) memCopy: )"
                                                  R"(Invalid call to memCopy: source size \(4\) )"
                                                  R"(is greater than destination size \(3\))")))
      << report;

  EXPECT_EQ(memCopy(nullptr, 0, source, 0), 22);
  EXPECT_EQ(memCopy(destination, 4, source, 0), 0);
}
