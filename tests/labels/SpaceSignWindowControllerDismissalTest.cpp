#include "tests/labels/LabelFixture.h"

namespace roomlattice::tests {
namespace {

using SpaceSignWindowControllerDismissalTest = LabelFixture;

TEST_F(SpaceSignWindowControllerDismissalTest, StartsItsFadeAnewWithEveryMove) {
  arriveOnTheSecond();
  desktop.advance(0s);
  user.movesPointerTo(overTheLabels);
  desktop.advance(150ms);
  EXPECT_DOUBLE_EQ(alpha(1), 0.39);
  user.movesPointerTo(overTheLabels);
  desktop.advance(150ms);
  EXPECT_DOUBLE_EQ(alpha(1), 0.195);
  desktop.advance(150ms);
  EXPECT_EQ(alpha(1), 0.0);
}

// The flash takes the place of the dismissal's fade, and fades more slowly.
TEST_F(SpaceSignWindowControllerDismissalTest, LeavesAFlashThatHasNotBegunToItsTurn) {
  arriveOnTheSecond();
  user.movesPointerTo(overTheLabels);
  desktop.advance(250ms);
  EXPECT_DOUBLE_EQ(alpha(1), 0.39);
  desktop.advance(250ms);
  EXPECT_EQ(alpha(1), 0.0);
}

TEST_F(SpaceSignWindowControllerDismissalTest, OutlastsChangesOfTheList) {
  arriveOnTheSecond();
  user.movesPointerTo(overTheLabels);
  desktop.advance(500ms);
  ASSERT_EQ(alpha(1), 0.0);
  desktop.addDesktop();
  desktop.removeDesktop(desktop.desktopAt(2));
  double afterWaking = -1.0;
  beforeLabelsHearOfAChange = [&] {
    desktop.announcements().post(platform::notification::didWake);
    afterWaking = alpha(1);
  };
  desktop.switchTo(desktop.desktopAt(0));
  EXPECT_EQ(afterWaking, 0.0);
  EXPECT_EQ(alpha(1), 0.78);
}

}  // namespace
}  // namespace roomlattice::tests
