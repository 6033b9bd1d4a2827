#include "tests/labels/LabelFixture.h"

#include <gmock/gmock.h>

namespace roomlattice::tests {
namespace {

using ::testing::ElementsAre;

using SpaceSignWindowControllerShowingTest = LabelFixture;

/// The name of the tenth desktop is a character longer, so that its label reaches beyond the others on both sides.
class SpaceSignWindowControllerShowingAmongTenTest : public LabelFixture {
 protected:
  SpaceSignWindowControllerShowingAmongTenTest() : LabelFixture(10) {}

  void movesPointerOverOnlyTheTenth() {
    const platform::Point point{165.0, 450.0};
    for (std::size_t index = 0; index < 9; ++index) {
      ASSERT_FALSE(label(index).frame().contains(point));
    }
    ASSERT_TRUE(label(9).frame().contains(point));
    user.movesPointerTo(point);
  }
};

TEST_F(SpaceSignWindowControllerShowingTest, EndsWhateverThePreferencesAreByThen) {
  startBetweenTicks();
  showAllFully();
  preferences().setShowSignAfterSelection(false);
  preferences().setShowSignInSwipeMode(false);
  signs->hideAll();
  EXPECT_EQ(behaviorOf(label(0)), 324U);
  desktop.advance(175ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.5, 0.5));
}

TEST_F(SpaceSignWindowControllerShowingAmongTenTest, EndsWhenThePointerEntersTheHiddenLabelInFront) {
  startVisitedLabels();
  desktop.switchTo(desktop.desktopAt(9));
  desktop.advance(1s);
  showAllFully();
  ASSERT_EQ(alpha(9), 0.0);
  ASSERT_EQ(behaviorOf(label(9)), 72U);
  movesPointerOverOnlyTheTenth();
  EXPECT_EQ(behaviorOf(label(9)), 324U);
  EXPECT_TRUE(label(0).isAnimating());
}

TEST_F(SpaceSignWindowControllerShowingAmongTenTest, EndsWhenThePointerEntersAHiddenLabelOfAnotherDesktop) {
  startVisitedLabels();
  preferences().setShowSignInSwipeMode(false);
  desktop.advance(1s);
  signs->showAll();
  ASSERT_EQ(alpha(9), 0.0);
  ASSERT_EQ(behaviorOf(label(0)), 72U);
  movesPointerOverOnlyTheTenth();
  EXPECT_EQ(behaviorOf(label(0)), 324U);
}

}  // namespace
}  // namespace roomlattice::tests
