#include "tests/x11/session/ProgramSession.h"
#include "tests/x11/session/Touchpad.h"

#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

constexpr int fingers = 3;

class ProgramSwipeTest : public ::testing::Test {
 protected:
  void SetUp() override {
    try {
      user_ = std::make_unique<ProgramSession>(SessionOptions{.server = ServerKind::XorgWithTouchpad});
    } catch (const ServerNotStarted& reason) {
      GTEST_SKIP() << "no X server with a touchpad: " << reason.what();
    }
    touchpad_ = std::make_unique<Touchpad>(user_->session.touchpadSocket());
    ASSERT_TRUE(user_->startAndTour()) << user_->program().process().errorOutput();
    // One more on the right, which has no label yet.
    user_->session.setDesktopCount(5);
    ASSERT_TRUE(user_->program().knowsDesktop("desktop-5"));
    ASSERT_TRUE(user_->switchTo(3));
    ASSERT_TRUE(waitFor([&] { return user_->statusItemColor() == defaultColorOf(3); }));
  }

  std::size_t labelsOnLastDesktop() { return user_->windows().labelsOn(4).size(); }

  double opacityOnFirstDesktop() {
    const std::vector<WindowProbe> labels = user_->windows().labelsOn(0);
    return labels.empty() ? -1.0 : opacityOf(labels.front());
  }

  std::unique_ptr<ProgramSession> user_;
  std::unique_ptr<Touchpad> touchpad_;
};

TEST_F(ProgramSwipeTest, ShowsTheLabelOfTheDesktopItGoesToAtItsBeginning) {
  touchpad_->beginSwipe(fingers);
  touchpad_->moveSwipe(fingers, -20.0, 1.0);
  EXPECT_TRUE(waitFor([&] { return labelsOnLastDesktop() == 1; }));
  touchpad_->endSwipe(fingers);
  // What a swipe does is for others to say.
  EXPECT_TRUE(user_->isOnDesktop(3));
}

TEST_F(ProgramSwipeTest, OfTwoFingersOrToTheOtherSideOrUpwardsShowsNothingThere) {
  // All labels in full, so that it is seen when a swipe has been heard.
  user_->movePointerTo({0, 0});
  ASSERT_TRUE(waitFor([&] { return opacityOnFirstDesktop() == 1.0; }));
  touchpad_->beginSwipe(2);
  touchpad_->moveSwipe(2, -20.0, 0.0);
  touchpad_->endSwipe(2);
  touchpad_->beginSwipe(fingers);
  touchpad_->moveSwipe(fingers, 0.0, -20.0);
  touchpad_->endSwipe(fingers);
  touchpad_->beginSwipe(fingers);
  touchpad_->moveSwipe(fingers, 20.0, 0.0);
  ASSERT_TRUE(waitFor([&] { return opacityOnFirstDesktop() < 1.0; }));
  touchpad_->endSwipe(fingers);
  EXPECT_EQ(labelsOnLastDesktop(), 0U);
}

}  // namespace
}  // namespace roomlattice::tests
