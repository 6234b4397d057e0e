#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <regex>
#include <stdexcept>

#include "orlo/core/Memory.h"
#include "orlo/core/Payload.h"
#include "orlo/core/Status.h"

using orlo::core::Payload;
using orlo::core::Status;
using orlo::core::memory::memCopy;
using testing::Throws;
using testing::ThrowsMessage;

namespace {
using Page = std::array<uint8_t, 4096>;

bool allZero(const uint8_t* bytes, size_t size) {
  return std::all_of(bytes, bytes + size, [](uint8_t b) { return b == 0; });
}
}  // namespace

TEST(Payload, IsAlignedZeroFilledSharedAndBoundsChecked) {
  Payload five(5);
  EXPECT_EQ(reinterpret_cast<uintptr_t>(five.data()) % 4096, 0u);
  EXPECT_TRUE(allZero(five.data(), 5));
  EXPECT_NO_THROW(five[4]);
  EXPECT_THAT([&] { five[5]; }, Throws<Status>(testing::Eq(Status::outOfBounds())));

  {
    Payload copy = five;
    copy[0] = 9;
  }
  EXPECT_EQ(five[0], 9);  // the buffer was shared, and outlives a dropped copy
  const Payload deep(five.data(), five.size());
  EXPECT_NE(deep.data(), five.data());
  EXPECT_EQ(deep[0], 9);
}

TEST(Payload, SafeCastChecksTheWholeStructure) {
  EXPECT_THROW(Payload(4095).safeCast<Page>(), std::out_of_range);
  const Payload page(4096);
  EXPECT_EQ(page.safeCast<Page>()->data(), page.data());
  EXPECT_EQ(reinterpret_cast<uint8_t*>(page.safeCast<uint32_t>(4092)), page.data() + 4092);
  EXPECT_THAT([&] { page.safeCast<Page>(1); },
              ThrowsMessage<std::out_of_range>(
                  "Cast (with offsets) with payload data out of range!\nPayload size: 4096\n"
                  "Structure Name: " +
                  std::string(typeid(Page*).name()) + "\nStructure Size: 4096\nOffset: 1"));
}

TEST(Memory, MemCopyResultsAndReport) {
  const uint8_t source[4] = {1, 2, 3, 4};
  uint8_t destination[4] = {};
  EXPECT_EQ(memCopy(destination, 4, source, 4), 0);
  EXPECT_EQ(destination[3], 4);
  EXPECT_EQ(memCopy(nullptr, 0, source, 0), 22);

  uint8_t untouched[4] = {};
  testing::internal::CaptureStderr();
  EXPECT_EQ(memCopy(untouched, 3, source, 4), 34);
  EXPECT_TRUE(allZero(untouched, 4));
  const std::string report = testing::internal::GetCapturedStderr();
  EXPECT_TRUE(std::regex_match(report, std::regex(R"(\[fatal\] Memory\.cpp\(\d+\) memCopy: )"
                                                  R"(Invalid call to memCopy: source size \(4\) )"
                                                  R"(is greater than destination size \(3\))")))
      << report;
}
