#include "platform/simulated/SimulatedEvents.h"

#include "tests/support/SimulatedFixture.h"

#include <memory>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::DockSwipe;

using platform::Event;
using platform::EventField;
using platform::EventTap;
using platform::KeyDisposition;
using platform::KeyEvent;
using platform::Registration;
using platform::simulated::TapDisabling;

class SimulatedEventsTest : public SimulatedFixture {
 protected:
  platform::simulated::SimulatedEvents& events() { return platform().events(); }

  std::unique_ptr<EventTap> recordingTap() {
    return events().createTap([this](const Event& event, std::uint32_t type) {
      types_.push_back(type);
      sources_.push_back(event.integer(EventField::SourceProcessID));
    });
  }

  void postSwipe(DockSwipe::Phase phase) {
    const std::unique_ptr<Event> event = events().createEvent();
    event->setInteger(EventField::Kind, 30);
    event->setInteger(EventField::GestureKind, 23);
    event->setInteger(EventField::SwipeAxis, 1);
    event->setInteger(EventField::Phase, phase);
    event->setReal(EventField::Progress, 1.0);
    events().post(*event);
  }

  std::vector<std::uint32_t> types_;
  std::vector<std::int64_t> sources_;
};

TEST_F(SimulatedEventsTest, BringsTheUsersEventsToATapThatIsEnabled) {
  const auto tap = recordingTap();
  user.movesFingers(DockSwipe::Began, {});
  EXPECT_TRUE(types_.empty());
  tap->enable();
  user.movesFingers(DockSwipe::Began, {});
  user.movesPointerTo({1.0, 1.0});
  user.pressesKey(36);
  EXPECT_EQ(types_, (std::vector<std::uint32_t>{30, 5, 10}));
  EXPECT_EQ(sources_, (std::vector<std::int64_t>{0, 0, 0}));
}

TEST_F(SimulatedEventsTest, BringsPostedEventsToTapsLaterWithTheirSource) {
  const auto tap = recordingTap();
  tap->enable();
  postSwipe(DockSwipe::Began);
  EXPECT_TRUE(types_.empty());
  desktop.advance(0s);
  EXPECT_EQ(types_, std::vector<std::uint32_t>{30});
  EXPECT_NE(sources_, std::vector<std::int64_t>{0});
}

TEST_F(SimulatedEventsTest, MovesDesktopsByPostedSwipes) {
  postSwipe(DockSwipe::Began);
  postSwipe(DockSwipe::Ended);
  desktop.advance(1s);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(1));
}

TEST_F(SimulatedEventsTest, BringsNothingToATapThatHasEnded) {
  auto tap = recordingTap();
  tap->enable();
  tap.reset();
  user.movesFingers(DockSwipe::Began, {});
  EXPECT_TRUE(types_.empty());
}

TEST_F(SimulatedEventsTest, LetsATapEndItself) {
  std::unique_ptr<EventTap> tap;
  int calls = 0;
  tap = events().createTap([&](const Event&, std::uint32_t) {
    ++calls;
    tap.reset();
  });
  tap->enable();
  user.movesFingers(DockSwipe::Began, {});
  user.movesFingers(DockSwipe::Changed, {});
  EXPECT_EQ(calls, 1);
}

TEST_F(SimulatedEventsTest, TellsATapThatItWasDisabledUntilItIsEnabledAgain) {
  const auto tap = recordingTap();
  tap->enable();
  desktop.events().disableTaps(TapDisabling::ByTimeout);
  user.movesFingers(DockSwipe::Began, {});
  EXPECT_EQ(types_, std::vector<std::uint32_t>{platform::tapEvent::disabledByTimeout});
  tap->enable();
  desktop.events().disableTaps(TapDisabling::ByUserInput);
  EXPECT_EQ(types_.back(), platform::tapEvent::disabledByUserInput);
  tap->enable();
  user.movesFingers(DockSwipe::Began, {});
  EXPECT_EQ(types_.back(), 30U);
}

TEST_F(SimulatedEventsTest, MakesNoTapWithoutThePermission) {
  desktop.faults.accessibilityDenied = true;
  EXPECT_EQ(recordingTap(), nullptr);
}

TEST_F(SimulatedEventsTest, FallSilentWhenThePermissionIsTakenAway) {
  const auto tap = recordingTap();
  tap->enable();
  desktop.faults.accessibilityDenied = true;
  user.movesFingers(DockSwipe::Began, {});
  EXPECT_TRUE(types_.empty());
}

TEST_F(SimulatedEventsTest, DropWhatIsPostedWithoutThePermission) {
  desktop.faults.accessibilityDenied = true;
  postSwipe(DockSwipe::Began);
  postSwipe(DockSwipe::Ended);
  desktop.advance(1s);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
}

TEST_F(SimulatedEventsTest, LeaveTheUsersOwnSwipesAloneWithoutThePermission) {
  desktop.faults.accessibilityDenied = true;
  user.swipes(Right);
  desktop.advance(1s);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(1));
}

TEST_F(SimulatedEventsTest, CannotBeMadeAsOftenAsTheFaultSays) {
  desktop.faults.eventsNotCreated = 2;
  EXPECT_EQ(events().createEvent(), nullptr);
  EXPECT_EQ(events().createEvent(), nullptr);
  EXPECT_NE(events().createEvent(), nullptr);
}

TEST_F(SimulatedEventsTest, ReportPointerMovesWithThePointerWhereItWent) {
  std::vector<platform::Point> seen;
  const Registration monitor = events().monitorGlobalMouseMoved([&] { seen.push_back(events().mouseLocation()); });
  user.movesPointerTo({3.0, 4.0});
  EXPECT_EQ(seen, (std::vector<platform::Point>{{3.0, 4.0}}));
}

TEST_F(SimulatedEventsTest, ReportNoPointerMovesOnceTheMonitorHasEnded) {
  int moves = 0;
  Registration monitor = events().monitorGlobalMouseMoved([&] { ++moves; });
  monitor.cancel();
  user.movesPointerTo({3.0, 4.0});
  EXPECT_EQ(moves, 0);
}

TEST_F(SimulatedEventsTest, ReportNoPointerMovesOverWindowsThatTakeTheMouse) {
  int moves = 0;
  const Registration monitor = events().monitorGlobalMouseMoved([&] { ++moves; });
  const auto item = platform().userInterface().createStatusItem(platform::FixedLength{100.0});
  const auto window =
      platform().userInterface().createTabbedWindow({.title = "Settings", .contentSize = {500.0, 400.0}});
  const auto label = platform().userInterface().createOverlayWindow({.frame = {{0.0, 0.0}, {1440.0, 900.0}}});
  label->setAlpha(1.0);
  label->orderFront();
  const platform::Point overItem{1190.0, 890.0};
  const platform::Point overWindow{720.0, 450.0};
  user.movesPointerTo(overItem);
  EXPECT_EQ(moves, 0);
  user.movesPointerTo(overWindow);
  EXPECT_EQ(moves, 1) << "the window is not shown yet";
  window->show();
  user.movesPointerTo(overWindow);
  EXPECT_EQ(moves, 1);
  user.movesPointerTo({10.0, 10.0});
  EXPECT_EQ(moves, 2);
}

TEST_F(SimulatedEventsTest, GiveNoPointerMonitorWhereItIsRefused) {
  desktop.faults.pointerMonitorsRefused = true;
  EXPECT_FALSE(events().monitorGlobalMouseMoved([] {}));
}

TEST_F(SimulatedEventsTest, ReportKeysOnlyWhileTheProgramHasTheKeyboard) {
  std::vector<int> codes;
  const Registration monitor = events().monitorLocalKeyDown([&](const KeyEvent& event) {
    codes.push_back(event.code());
    return KeyDisposition::PassOn;
  });
  user.pressesKey(36);
  EXPECT_TRUE(codes.empty());
  const auto window = platform().userInterface().createTabbedWindow({.contentSize = {500.0, 400.0}});
  window->show();
  user.pressesKey(53);
  EXPECT_EQ(codes, std::vector{53});
}

TEST_F(SimulatedEventsTest, KeepASwallowedKeyFromLaterMonitors) {
  std::vector<int> monitors;
  const Registration first = events().monitorLocalKeyDown([&](const KeyEvent& event) {
    monitors.push_back(1);
    return event.code() == 53 ? KeyDisposition::Swallow : KeyDisposition::PassOn;
  });
  const Registration second = events().monitorLocalKeyDown([&](const KeyEvent&) {
    monitors.push_back(2);
    return KeyDisposition::PassOn;
  });
  const auto window = platform().userInterface().createTabbedWindow({.contentSize = {500.0, 400.0}});
  window->show();
  user.pressesKey(53);
  user.pressesKey(36);
  EXPECT_EQ(monitors, (std::vector{1, 1, 2}));
}

}  // namespace
}  // namespace roomlattice::tests
