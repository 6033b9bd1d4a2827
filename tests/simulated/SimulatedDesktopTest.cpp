#include "platform/simulated/SimulatedDesktop.h"

#include "tests/support/SimulatedFixture.h"

namespace roomlattice::tests {
namespace {

using SimulatedDesktop = SimulatedFixture;

TEST_F(SimulatedDesktop, StartsOnTheFirstOfThreeDesktops) {
  ASSERT_EQ(desktop.spaces().regular().size(), 3U);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
}

TEST_F(SimulatedDesktop, MovesOneDesktopAfterASwipe) {
  user.swipes(Right);
  desktop.advance(289ms);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
  desktop.advance(1ms);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(1));
}

}  // namespace
}  // namespace roomlattice::tests
