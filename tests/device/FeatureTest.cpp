#include <gtest/gtest.h>

#include <vector>

#include "orlo/features/Feature.h"

using orlo::core::Status;

namespace {

std::vector<Status> heard;

void listen(void* context, const Status& status) {
  EXPECT_NE(context, nullptr);
  heard.push_back(status);
}

}  // namespace

TEST(Feature, SetStatusKeepsTheStatusAndTellsAListenerOnlyWithAContext) {
  orlo::features::Feature feature;
  feature.statusListener = listen;
  feature.setStatus(Status(10, 33, "x"));
  EXPECT_EQ(feature.status, Status(10, 33, "x"));
  EXPECT_TRUE(heard.empty());

  int context = 0;
  feature.statusContext = &context;
  feature.setStatus(Status(36, "Invalid arguments."));
  ASSERT_EQ(heard.size(), 1u);
  EXPECT_EQ(heard[0].message(), "Invalid arguments.");
}
