#include <gtest/gtest.h>

#include <vector>

#include "orlo/core/OwnStatuses.h"
#include "orlo/core/Status.h"
#include "orlo/core/xml/XmlObject.h"
#include "support/ExpectedText.h"

using orlo::core::Status;

TEST(Status, ComparesByNumbersAndPrintsThreeLinesAndXml) {
  EXPECT_EQ(Status(0, "anything"), Status::success());
  EXPECT_TRUE(orlo::core::succeeded(Status(0, "anything")));
  EXPECT_NE(Status(10, 0, "x"), Status::success());
  EXPECT_EQ(Status(10, 33, "one"), Status(10, 33, "other"));
  EXPECT_EQ(Status(-2, -7, "m").toString(), "Category: -2\nCode: -7\nMessage: m");
  // A moved-from status keeps its numbers.
  Status moved = Status::openFileFailed();
  Status target(std::move(moved));
  EXPECT_EQ(moved.toString(), "Category: 10\nCode: 124\nMessage: ");

  EXPECT_EQ(orlo::testing::xmlText(*Status(10, -1, "m").toXml()),
            R"(<Object category="status"><Property name="Category" value="10"/>)"
            R"(<Property name="Code" value="-1"/><Property name="Message" value="m"/></Object>)");
}

TEST(Status, RunTimeNumbersFollowTheCounter) {
  const Status first = Status::allocate("first");
  const Status second = Status::allocate("second");
  EXPECT_EQ(first.category(), 100);
  EXPECT_EQ(second.code(), first.code() + 1);
}

TEST(Status, OwnMakersHaveCodesOfTheirOwn) {
  namespace core = orlo::core;
  const std::vector<Status> own = {
      core::noDriveMatches("9", "why"), core::unknownLogName("x", "A, B"),
      core::invalidPropertyValue("NamespaceId", "uint32"), core::noIdentifyDecoder(4)};
  for (size_t i = 0; i < own.size(); ++i) {
    EXPECT_EQ(own[i].category(), core::kOwnCategory) << own[i].message();
    for (size_t j = i + 1; j < own.size(); ++j) {
      EXPECT_NE(own[i], own[j]) << own[i].message() << " / " << own[j].message();
    }
  }
}
