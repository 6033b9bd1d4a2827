#include "platform/DockSwipe.h"

#include "support/FieldEvent.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::Direction;
using platform::DockSwipe;
using platform::EventField;

FieldEvent eventOf(const DockSwipe& swipe) {
  FieldEvent event;
  swipe.write(event);
  return event;
}

TEST(DockSwipeTest, ReadsWhatItHasWritten) {
  const auto read = DockSwipe::read(eventOf({.phase = DockSwipe::Changed, .progress = -0.25, .velocity = 1.5}));
  ASSERT_TRUE(read);
  EXPECT_EQ(read->phase, DockSwipe::Changed);
  EXPECT_EQ(read->progress, -0.25);
  EXPECT_EQ(read->velocity, 1.5);
  EXPECT_EQ(read->axis, DockSwipe::Horizontal);
}

TEST(DockSwipeTest, WritesTheVelocityIntoBothOfItsFields) {
  const FieldEvent event = eventOf({.velocity = 0.5});
  EXPECT_EQ(event.real(EventField::Velocity), 0.5);
  EXPECT_EQ(event.real(EventField::SecondaryVelocity), 0.5);
}

TEST(DockSwipeTest, IsNoEventOfAnotherKindOrGesture) {
  for (const EventField field : {EventField::Kind, EventField::GestureKind}) {
    FieldEvent event = eventOf({});
    event.setInteger(field, 29);
    EXPECT_FALSE(DockSwipe::read(event)) << static_cast<std::uint32_t>(field);
  }
  EXPECT_FALSE(DockSwipe::read(FieldEvent()));
}

TEST(DockSwipeTest, IsReadWhateverItsAxisAndPhase) {
  FieldEvent event = eventOf({});
  event.setInteger(EventField::SwipeAxis, 2);
  event.setInteger(EventField::Phase, 16);
  const auto read = DockSwipe::read(event);
  ASSERT_TRUE(read);
  EXPECT_EQ(static_cast<std::int64_t>(read->axis), 2);
  EXPECT_EQ(static_cast<std::int64_t>(read->phase), 16);
}

TEST(DockSwipeTest, GoesWhereItsVelocityPointsAndAtRestWhereItHasCome) {
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  struct Row {
    double progress;
    double velocity;
    Direction direction;
  };
  const std::vector<Row> rows = {
      {-0.3, 0.1, Direction::Right}, {0.3, -0.1, Direction::Left},  {-0.3, 0.0, Direction::Left},
      {0.0, 0.0, Direction::Right},  {-0.0, 0.0, Direction::Right}, {1.0, nan, Direction::Left},
      {nan, 0.0, Direction::Left},   {nan, 1.0, Direction::Right},
  };
  for (const Row& row : rows) {
    const DockSwipe swipe{.progress = row.progress, .velocity = row.velocity};
    EXPECT_EQ(swipe.direction(), row.direction) << row.progress << " " << row.velocity;
  }
}

TEST(DockSwipeTest, NumbersTheDirectionsFromLeftToRight) {
  EXPECT_EQ(static_cast<int>(Direction::Left), 0);
  EXPECT_EQ(static_cast<int>(Direction::Right), 1);
}

}  // namespace
}  // namespace roomlattice::tests
