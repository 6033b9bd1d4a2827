#include "support/Stack.h"

#include <gtest/gtest.h>

namespace roomlattice::platform {
namespace {

using Frames = std::vector<Rect>;

TEST(StackHorizontalTest, PlacesChildrenFromLeftToRightCentredOnEachOther) {
  const Stack stack = horizontalStack({{10.0, 20.0}, {30.0, 4.0}, {5.0, 13.0}}, 12.0);
  EXPECT_EQ(stack.size, (Size{69.0, 20.0}));
  EXPECT_EQ(stack.frames, (Frames{{{0.0, 0.0}, {10.0, 20.0}}, {{22.0, 8.0}, {30.0, 4.0}}, {{64.0, 3.5}, {5.0, 13.0}}}));
}

TEST(StackVerticalTest, PlacesChildrenFromTopToBottomAtTheLeft) {
  const Stack stack = verticalStack({{10.0, 20.0}, {30.0, 4.0}, {5.0, 13.0}}, 8.0);
  EXPECT_EQ(stack.size, (Size{30.0, 53.0}));
  EXPECT_EQ(stack.frames, (Frames{{{0.0, 33.0}, {10.0, 20.0}}, {{0.0, 21.0}, {30.0, 4.0}}, {{0.0, 0.0}, {5.0, 13.0}}}));
}

TEST(StackTest, AreAsLargeAsTheirOnlyChild) {
  for (const auto stack : {horizontalStack, verticalStack}) {
    const Stack one = stack({{10.0, 20.0}}, 8.0);
    EXPECT_EQ(one.size, (Size{10.0, 20.0}));
    EXPECT_EQ(one.frames, (Frames{{{0.0, 0.0}, {10.0, 20.0}}}));
  }
}

TEST(StackTest, AreEmptyWithoutChildren) {
  for (const auto stack : {horizontalStack, verticalStack}) {
    const Stack none = stack({}, 8.0);
    EXPECT_EQ(none.size, Size());
    EXPECT_TRUE(none.frames.empty());
  }
}

TEST(StackTest, KeepTheirSpacingAroundChildrenWithoutASize) {
  EXPECT_EQ(horizontalStack({{10.0, 1.0}, {0.0, 0.0}, {10.0, 1.0}}, 3.0).size, (Size{26.0, 1.0}));
  EXPECT_EQ(verticalStack({{1.0, 10.0}, {0.0, 0.0}, {1.0, 10.0}}, 3.0).size, (Size{1.0, 26.0}));
}

}  // namespace
}  // namespace roomlattice::platform
