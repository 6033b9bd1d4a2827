#include "platform/x11/X11Desktops.h"

#include "platform/InProcessNotificationCenter.h"
#include "tests/x11/QtApplication.h"
#include "tests/x11/X11Session.h"

#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::InProcessNotificationCenter;
using platform::Registration;
using platform::x11::StepDirection;
using platform::x11::WindowManagerWatch;
using platform::x11::X11Desktops;

class Desktops : public ::testing::TestWithParam<WindowManagerKind> {
 protected:
  int count() const { return static_cast<int>(desktops_.list().desktops.size()); }
  int current() const { return desktops_.list().current ? static_cast<int>(*desktops_.list().current) : -1; }

  X11Session session_{{.windowManager = GetParam(), .desktops = 3}};
  QtApplication qt_;
  InProcessNotificationCenter center_;
  int posts_ = 0;
  Registration observation_ = center_.observe(platform::notification::activeSpaceDidChange, [this] { ++posts_; });
  WindowManagerWatch windowManager_{qt_.connection()};
  X11Desktops desktops_{qt_.connection(), windowManager_, center_};
};

TEST_P(Desktops, AreReadAtOnce) {
  EXPECT_EQ(count(), 3);
  EXPECT_EQ(current(), session_.currentDesktop());
}

TEST_P(Desktops, FollowASwitchMadeByOthers) {
  session_.run({"wmctrl", "-s", "2"});
  EXPECT_TRUE(waitFor([this] { return current() == 2; }));
  EXPECT_GE(posts_, 1);
}

TEST_P(Desktops, StepByStepQuicklyArriveAtTheSum) {
  desktops_.step(StepDirection::Next);
  desktops_.step(StepDirection::Next);
  EXPECT_TRUE(waitFor([this] { return current() == 2; }));
  EXPECT_EQ(session_.currentDesktop(), 2);
}

INSTANTIATE_TEST_SUITE_P(OnEvery, Desktops,
                         ::testing::Values(WindowManagerKind::Openbox, WindowManagerKind::Xfwm4,
                                           WindowManagerKind::KWin),
                         ::testing::PrintToStringParamName());

}  // namespace
}  // namespace roomlattice::tests
