#include "platform/x11/input/SwipeTranslator.h"

#include "platform/DockSwipe.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace roomlattice::platform::x11 {
namespace {

using namespace std::chrono_literals;
using Stage = TouchpadSwipe::Stage;

class SwipeTranslatorTest : public ::testing::Test {
 protected:
  void begin(unsigned fingers = 3) { feed({.stage = Stage::Begin, .fingers = fingers}); }
  void move(double deltaX, double deltaY) { feed({.stage = Stage::Update, .deltaX = deltaX, .deltaY = deltaY}); }
  void end(Stage stage = Stage::End) { feed({.stage = stage}); }

  std::vector<std::int64_t> phases() const {
    std::vector<std::int64_t> result;
    for (const FieldEvent& event : events_) {
      result.push_back(event.integer(EventField::Phase));
    }
    return result;
  }

  const FieldEvent& last() const { return events_.back(); }

 private:
  void feed(TouchpadSwipe swipe) {
    now_ += 10ms;
    swipe.time = now_;
    if (const std::optional<FieldEvent> event = translator_.translate(swipe)) {
      events_.push_back(*event);
    }
  }

  SwipeTranslator translator_;
  std::vector<FieldEvent> events_;
  std::chrono::milliseconds now_{1000};
};

using Phases = std::vector<std::int64_t>;

TEST_F(SwipeTranslatorTest, TellsASwipeFromItsDecisiveMotionToItsEnd) {
  begin();
  move(-2.0, 0.0);
  EXPECT_TRUE(phases().empty());
  move(-4.0, 0.0);
  EXPECT_EQ(phases(), Phases{DockSwipe::Began});
  move(-34.0, 0.0);
  end();
  EXPECT_EQ(phases(), (Phases{DockSwipe::Began, DockSwipe::Changed, DockSwipe::Ended}));
}

TEST_F(SwipeTranslatorTest, MakesEventsOfTheUsersDockSwipes) {
  begin();
  move(-40.0, 0.0);
  EXPECT_TRUE(DockSwipe::read(last()));
  EXPECT_EQ(last().integer(EventField::SourceProcessID), 0);
  EXPECT_EQ(last().integer(EventField::SwipeAxis), 1);
  EXPECT_DOUBLE_EQ(last().real(EventField::Progress), 0.1);
  EXPECT_DOUBLE_EQ(last().real(EventField::Velocity), 10.0);
  EXPECT_EQ(last().real(EventField::SecondaryVelocity), last().real(EventField::Velocity));
}

TEST_F(SwipeTranslatorTest, LeadsLeftWhenFingersMoveRight) {
  begin(4);
  move(20.0, 5.0);
  EXPECT_LT(last().real(EventField::Progress), 0.0);
  EXPECT_LT(last().real(EventField::Velocity), 0.0);
}

TEST_F(SwipeTranslatorTest, AddsUpTheWayButNotTheVelocity) {
  begin();
  move(-40.0, 0.0);
  move(20.0, 0.0);
  EXPECT_DOUBLE_EQ(last().real(EventField::Progress), 0.05);
  EXPECT_DOUBLE_EQ(last().real(EventField::Velocity), -5.0);
}

TEST_F(SwipeTranslatorTest, BeginsInTheDirectionOfTheWholeWayWhateverMotionCameLast) {
  struct Row {
    std::pair<double, double> first;
    std::pair<double, double> then;
    double sign;
  };
  for (const auto& [first, then, sign] : {Row{{-5.9, 0.0}, {0.5, 4.0}, 1.0}, Row{{5.9, 0.0}, {-0.5, 4.0}, -1.0},
                                          Row{{0.0, -5.0}, {-7.0, 1.0}, 1.0}, Row{{3.0, 0.0}, {-10.0, 0.0}, 1.0}}) {
    begin();
    move(first.first, first.second);
    move(then.first, then.second);
    ASSERT_EQ(last().integer(EventField::Phase), DockSwipe::Began);
    EXPECT_GT(last().real(EventField::Progress) * sign, 0.0);
    EXPECT_GT(last().real(EventField::Velocity) * sign, 0.0);
    end();
  }
}

TEST_F(SwipeTranslatorTest, TellsOfACancelledSwipe) {
  begin();
  move(-40.0, 0.0);
  end(Stage::Cancel);
  EXPECT_EQ(phases(), (Phases{DockSwipe::Began, DockSwipe::Cancelled}));
}

TEST_F(SwipeTranslatorTest, IgnoresSwipesUpAndDownToTheirEnd) {
  begin();
  move(3.0, -20.0);
  move(-200.0, 0.0);
  end();
  EXPECT_TRUE(phases().empty());
}

TEST_F(SwipeTranslatorTest, IgnoresTwoFingers) {
  begin(2);
  move(-200.0, 0.0);
  end();
  EXPECT_TRUE(phases().empty());
}

TEST_F(SwipeTranslatorTest, TellsNothingOfATouchWithoutMotion) {
  begin();
  end();
  EXPECT_TRUE(phases().empty());
}

TEST_F(SwipeTranslatorTest, StartsAfreshWithEachSwipe) {
  begin();
  move(-400.0, 0.0);
  end();
  begin();
  move(8.0, 0.0);
  EXPECT_DOUBLE_EQ(last().real(EventField::Progress), -0.02);
}

TEST_F(SwipeTranslatorTest, IgnoresMotionOutsideOfASwipe) {
  move(-400.0, 0.0);
  end();
  EXPECT_TRUE(phases().empty());
}

}  // namespace
}  // namespace roomlattice::platform::x11
