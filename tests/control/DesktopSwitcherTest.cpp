#include "control/DesktopSwitcher.h"

#include "tests/control/CommandsFixture.h"

namespace roomlattice::tests {
namespace {

class DesktopSwitcherTest : public CommandsFixture {
 protected:
  explicit DesktopSwitcherTest(int desktops = 6) : CommandsFixture(desktops) {}

  void ask(const std::string& name) { EXPECT_FALSE(commands().switchTo(name)); }
};

TEST_F(DesktopSwitcherTest, LeadsToTheSamePlaceHoweverOftenItIsAsked) {
  for (int count = 0; count < 10; ++count) {
    ask("3");
    desktop.advance(1ms);
  }
  desktop.advance(5s);
  EXPECT_TRUE(isOnDesktop(2));
}

TEST_F(DesktopSwitcherTest, FulfilsTheLastWishOfThoseThatCameOnTheWay) {
  ask("3");
  for (const char* wish : {"6", "1", "4"}) {
    desktop.advance(10ms);
    ask(wish);
  }
  desktop.advance(5s);
  EXPECT_TRUE(isOnDesktop(3));
}

TEST_F(DesktopSwitcherTest, CountsStepsFromWhereTheWayLeads) {
  ask("3");
  EXPECT_FALSE(commands().switchToNext());
  EXPECT_FALSE(commands().switchToNext());
  EXPECT_FALSE(commands().switchToPrevious());
  desktop.advance(5s);
  EXPECT_TRUE(isOnDesktop(3));
}

TEST_F(DesktopSwitcherTest, ComesBackWhenItIsAskedToOnTheWay) {
  ask("4");
  desktop.advance(20ms);
  ask("1");
  desktop.advance(5s);
  EXPECT_TRUE(isOnDesktop(0));
}

TEST_F(DesktopSwitcherTest, ForgetsAWayThatDoesNotArrive) {
  desktop.faults.allSwipesDropped = true;
  ask("3");
  ask("4");
  desktop.advance(5s);
  EXPECT_TRUE(isOnDesktop(0));
  desktop.faults.allSwipesDropped = false;
  desktop.advance(5s);
  EXPECT_TRUE(isOnDesktop(0));
  ask("2");
  desktop.advance(5s);
  EXPECT_TRUE(isOnDesktop(1));
}

TEST_F(DesktopSwitcherTest, GoesOnAtOnceFromWhereItHasArrived) {
  ask("3");
  desktop.advance(300ms);
  ASSERT_TRUE(isOnDesktop(2));
  ask("2");
  desktop.advance(300ms);
  EXPECT_TRUE(isOnDesktop(1));
}

class DesktopSwitcherOfFortyTest : public DesktopSwitcherTest {
 protected:
  DesktopSwitcherOfFortyTest() : DesktopSwitcherTest(40) {}
};

TEST_F(DesktopSwitcherOfFortyTest, WaitsForTheEndOfALongWay) {
  ask("1");
  desktop.advance(5s);
  ask("40");
  ask("1");
  desktop.advance(10s);
  EXPECT_TRUE(isOnDesktop(0));
}

TEST_F(DesktopSwitcherTest, TakesTenThousandWishesAtOnce) {
  for (int count = 0; count < 10000; ++count) {
    ask(std::to_string(1 + count % 6));
  }
  ask("5");
  desktop.advance(5s);
  EXPECT_TRUE(isOnDesktop(4));
}

}  // namespace
}  // namespace roomlattice::tests
