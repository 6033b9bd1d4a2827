#include "platform/x11/input/X11Events.h"

#include "platform/DockSwipe.h"
#include "tests/x11/session/UserInterfaceFixture.h"

#include <gmock/gmock.h>

namespace roomlattice::tests {
namespace {

using platform::Event;
using platform::EventField;
using ::testing::ElementsAre;

constexpr double right = 1.0;
constexpr double left = -1.0;

class X11EventsSwipesTest : public ::testing::TestWithParam<WindowManagerKind> {
 protected:
  X11EventsSwipesTest() {
    observation_ = ui_.center.observe(platform::notification::activeSpaceDidChange,
                                      [this] { visited_.push_back(ui_.desktops.list().current.value_or(99)); });
  }

  void post(platform::DockSwipe::Phase phase, double sign) {
    const std::unique_ptr<Event> event = events_.createEvent();
    platform::DockSwipe{.phase = phase, .progress = sign}.write(*event);
    events_.post(*event);
  }

  void swipe(double sign) {
    post(platform::DockSwipe::Began, sign);
    post(platform::DockSwipe::Changed, sign);
    post(platform::DockSwipe::Ended, sign);
  }

  bool comesToDesktop(int desktop) {
    return waitFor([&] { return ui_.session.currentDesktop() == desktop; });
  }

  UserInterfaceSession ui_{{.windowManager = GetParam()}};
  platform::x11::X11Events events_{ui_.connection(), ui_.desktops, ui_.screens};
  std::vector<std::size_t> visited_;
  platform::Registration observation_;
};

TEST_P(X11EventsSwipesTest, TakeOneStepEachHoweverQuicklyTheyFollow) {
  swipe(right);
  swipe(right);
  swipe(right);
  EXPECT_TRUE(comesToDesktop(3));
  swipe(left);
  swipe(left);
  EXPECT_TRUE(comesToDesktop(1));
  EXPECT_TRUE(waitFor([&] { return !visited_.empty() && visited_.back() == 1; }));
}

TEST_P(X11EventsSwipesTest, GoOverEachDesktopOnTheWay) {
  for (const double sign : {right, right, left}) {
    const std::size_t before = visited_.size();
    swipe(sign);
    ASSERT_TRUE(waitFor([&] { return visited_.size() > before; }));
  }
  EXPECT_THAT(visited_, ElementsAre(1U, 2U, 1U));
}

TEST_P(X11EventsSwipesTest, DoNotWrapAround) {
  swipe(left);
  swipe(right);
  EXPECT_TRUE(comesToDesktop(1));
  for (int time = 0; time < 5; ++time) {
    swipe(right);
  }
  EXPECT_TRUE(comesToDesktop(3));
  swipe(right);
  swipe(left);
  EXPECT_TRUE(comesToDesktop(2));
}

TEST_P(X11EventsSwipesTest, TakeOneStepAndTakeItWhenTheyBegin) {
  post(platform::DockSwipe::Began, right);
  EXPECT_TRUE(comesToDesktop(1));
  EXPECT_TRUE(waitFor([&] { return visited_.size() == 1; }));
  post(platform::DockSwipe::Changed, right);
  post(platform::DockSwipe::Ended, right);
  swipe(right);
  EXPECT_TRUE(comesToDesktop(2));
  EXPECT_TRUE(waitFor([&] { return visited_.size() > 1; }));
  EXPECT_THAT(visited_, ElementsAre(1U, 2U));
}

INSTANTIATE_TEST_SUITE_P(OnEvery, X11EventsSwipesTest, everyWindowManager(), ::testing::PrintToStringParamName());

/// The user's mouse, which makes relative motions.
class X11EventsPointerTest : public ::testing::Test {
 protected:
  void moveTo(const platform::Point& point) {
    ASSERT_TRUE(waitFor([&] {
      const platform::Point now = events_.mouseLocation();
      const auto x = static_cast<int>(point.x - now.x);
      const auto y = static_cast<int>(now.y - point.y);
      if (x == 0 && y == 0) {
        return true;
      }
      ui_.session.run({"xdotool", "mousemove_relative", "--", std::to_string(x), std::to_string(y)});
      return false;
    }));
  }

  UserInterfaceSession ui_;
  platform::x11::X11Events events_{ui_.connection(), ui_.desktops, ui_.screens};
};

TEST_F(X11EventsPointerTest, IsReportedWhereItIsFromTheBottomLeft) {
  int moves = 0;
  platform::Point last;
  const auto monitor = events_.monitorGlobalMouseMoved([&] {
    ++moves;
    last = events_.mouseLocation();
  });
  moveTo({100.0, 200.0});
  EXPECT_TRUE(waitFor([&] { return moves > 0 && last == platform::Point{100.0, 200.0}; }));
}

TEST_F(X11EventsPointerTest, IsNotReportedToAMonitorThatHasEnded) {
  int ended = 0;
  int running = 0;
  auto ending = events_.monitorGlobalMouseMoved([&] { ++ended; });
  const auto monitor = events_.monitorGlobalMouseMoved([&] { ++running; });
  ending.cancel();
  moveTo({300.0, 300.0});
  EXPECT_TRUE(waitFor([&] { return running > 0; }));
  EXPECT_EQ(ended, 0);
}

}  // namespace
}  // namespace roomlattice::tests
