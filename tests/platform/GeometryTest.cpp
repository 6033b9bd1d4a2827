#include "platform/Geometry.h"

#include <gtest/gtest.h>

namespace roomlattice::platform {
namespace {

constexpr Rect rect{{-10.0, 20.0}, {30.0, 40.0}};

TEST(GeometryTest, KnowsItsEdgesAndItsMiddle) {
  EXPECT_EQ(rect.minX(), -10.0);
  EXPECT_EQ(rect.midX(), 5.0);
  EXPECT_EQ(rect.maxX(), 20.0);
  EXPECT_EQ(rect.minY(), 20.0);
  EXPECT_EQ(rect.midY(), 40.0);
  EXPECT_EQ(rect.maxY(), 60.0);
}

TEST(GeometryTest, ContainsItsLeftAndBottomEdgesOnly) {
  EXPECT_TRUE(rect.contains({-10.0, 20.0}));
  EXPECT_TRUE(rect.contains({19.9, 59.9}));
  EXPECT_FALSE(rect.contains({20.0, 30.0}));
  EXPECT_FALSE(rect.contains({0.0, 60.0}));
  EXPECT_FALSE(rect.contains({-10.1, 30.0}));
  EXPECT_FALSE(rect.contains({0.0, 19.9}));
}

TEST(GeometryTest, ContainsNothingWhenEmpty) {
  EXPECT_FALSE(Rect().contains({0.0, 0.0}));
}

}  // namespace
}  // namespace roomlattice::platform
