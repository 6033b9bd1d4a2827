#include "platform/simulated/SimulatedPlatform.h"

#include "tests/support/SimulatedFixture.h"

namespace roomlattice::tests {
namespace {

using SimulatedPlatformTest = SimulatedFixture;

TEST_F(SimulatedPlatformTest, RunsNothingOfAProgramThatHasEnded) {
  int runs = 0;
  platform().dispatcher().asyncAfter(1s, [&] { ++runs; });
  platform().dispatcher().background([&] { ++runs; });
  relaunch();
  desktop.advance(5s);
  EXPECT_EQ(runs, 0);
}

TEST_F(SimulatedPlatformTest, BringsNoInputToAProgramThatHasEnded) {
  int calls = 0;
  const auto tap = platform().events().createTap([&](const platform::Event&, std::uint32_t) { ++calls; });
  tap->enable();
  const auto monitor = platform().events().monitorGlobalMouseMoved([&] { ++calls; });
  const auto observer = platform().notifications().workspaceCenter().observe(
      platform::notification::activeSpaceDidChange, [&] { ++calls; });
  relaunch();
  user.movesPointerTo({1.0, 1.0});
  desktop.switchTo(desktop.desktopAt(1));
  EXPECT_EQ(calls, 0);
}

TEST_F(SimulatedPlatformTest, LeavesEventsItPostedToTheMachine) {
  const auto event = platform().events().createEvent();
  event->setInteger(platform::EventField::Kind, 30);
  event->setInteger(platform::EventField::GestureKind, 23);
  event->setInteger(platform::EventField::SwipeAxis, 1);
  event->setReal(platform::EventField::Progress, 1.0);
  for (const int phase : {1, 4}) {
    event->setInteger(platform::EventField::Phase, phase);
    platform().events().post(*event);
  }
  relaunch();
  desktop.advance(1s);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(1));
}

TEST_F(SimulatedPlatformTest, EncodesAndDecodesJSON) {
  const platform::Value value = platform::Value::Dictionary{{"red", 0.5}};
  const auto data = platform().json().encode(value);
  ASSERT_TRUE(data.has_value());
  EXPECT_EQ(platform().json().decode(*data), value);
}

using SimulatedPlatformDeathTest = SimulatedPlatformTest;

TEST_F(SimulatedPlatformDeathTest, IsTheOnlyProgramOnItsDesktop) {
  EXPECT_DEATH(platform::simulated::SimulatedPlatform second(desktop), "runs on this simulated desktop already");
}

}  // namespace
}  // namespace roomlattice::tests
