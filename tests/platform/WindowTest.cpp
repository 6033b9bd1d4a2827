#include "platform/Window.h"

#include <gtest/gtest.h>

namespace roomlattice::platform {
namespace {

TEST(WindowTest, JoinsUpToTheWindowServersNumbers) {
  using enum CollectionBehavior;
  EXPECT_EQ(static_cast<unsigned>(Managed | IgnoresCycle | FullScreenAuxiliary), 324U);
  EXPECT_EQ(static_cast<unsigned>(Transient | IgnoresCycle), 72U);
  EXPECT_EQ(static_cast<unsigned>(CanJoinAllSpaces | Stationary | IgnoresCycle), 81U);
}

TEST(WindowTest, ContainsItsMembersAlone) {
  using enum CollectionBehavior;
  EXPECT_TRUE(contains(Managed | IgnoresCycle, Managed));
  EXPECT_FALSE(contains(Managed | IgnoresCycle, CanJoinAllSpaces));
}

}  // namespace
}  // namespace roomlattice::platform
