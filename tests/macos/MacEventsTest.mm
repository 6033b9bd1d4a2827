#import "platform/macos/MacEvents.h"

#import <AppKit/AppKit.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

#include "tests/macos/supplement/EventMonitors.h"
#include "tests/macos/supplement/EventStream.h"

namespace roomlattice::platform::macos {
namespace {

using gnustep::EventStream;
using gnustep::FieldRecord;
using gnustep::TapRecord;
using Kind = gnustep::FieldRecord::Kind;

class MacEventsTest : public testing::Test {
 protected:
  MacEventsTest() { stream_.reset(); }
  ~MacEventsTest() override { gnustep::refuseMonitors(false); }

  EventStream& stream_ = EventStream::shared();
  MacEvents events_;
};

TEST_F(MacEventsTest, PostsFieldsInTheOrderTheyWereSetAtTheSessionsTap) {
  const std::unique_ptr<Event> event = events_.createEvent();
  event->setInteger(EventField::Kind, 30);
  event->setReal(EventField::Progress, -0.125);
  event->setInteger(EventField::Phase, 2);
  events_.post(*event);
  const gnustep::PostedEvent expected{
      .location = 1,
      .hasSource = false,
      .fields = {{55, Kind::Integer, 30.0}, {124, Kind::Double, -0.125}, {132, Kind::Integer, 2.0}}};
  EXPECT_THAT(stream_.posted, testing::ElementsAre(expected));
}

TEST_F(MacEventsTest, KeepsTheSmallestProgress) {
  const std::unique_ptr<Event> event = events_.createEvent();
  event->setReal(EventField::Progress, 1.401298464324817e-45);
  EXPECT_EQ(event->real(EventField::Progress), 1.401298464324817e-45);
}

TEST_F(MacEventsTest, GivesNoEventWhereTheSystemMakesNone) {
  stream_.refusesEvents = true;
  EXPECT_EQ(events_.createEvent(), nullptr);
}

TEST_F(MacEventsTest, ReleasesItsEvents) {
  const int before = EventStream::liveObjects();
  { const std::unique_ptr<Event> event = events_.createEvent(); }
  EXPECT_EQ(EventStream::liveObjects(), before);
}

TEST_F(MacEventsTest, TapsTheSessionAtItsHeadAndOnlyListens) {
  const std::unique_ptr<EventTap> tap = events_.createTap([](const Event&, std::uint32_t) {});
  tap->enable();
  const TapRecord expected{.location = 1,
                           .placement = 0,
                           .options = 1,
                           .mask = ~std::uint64_t{0},
                           .sourceOrder = 0,
                           .isInCommonModes = true,
                           .isEnabled = true};
  EXPECT_THAT(stream_.taps(), testing::ElementsAre(expected));
}

TEST_F(MacEventsTest, HandsTheTapsEventsOnAndGivesThemBackUnchanged) {
  std::optional<std::uint32_t> type;
  double velocity = 0.0;
  std::int64_t process = -1;
  const std::unique_ptr<EventTap> tap = events_.createTap([&](const Event& event, std::uint32_t sentType) {
    type = sentType;
    velocity = event.real(EventField::Velocity);
    process = event.integer(EventField::SourceProcessID);
  });
  tap->enable();
  EXPECT_TRUE(stream_.send({{129, Kind::Double, -2.5}}, 30));
  EXPECT_EQ(type, 30U);
  EXPECT_EQ(velocity, -2.5);
  EXPECT_EQ(process, 0);
}

TEST_F(MacEventsTest, HearsNothingBeforeTheTapIsEnabled) {
  int calls = 0;
  const std::unique_ptr<EventTap> tap = events_.createTap([&](const Event&, std::uint32_t) { ++calls; });
  stream_.send({});
  EXPECT_EQ(calls, 0);
}

TEST_F(MacEventsTest, TellsThatTheSystemHasDisabledTheTapAndEnablesItAgain) {
  std::vector<std::uint32_t> types;
  std::unique_ptr<EventTap> tap;
  tap = events_.createTap([&](const Event& event, std::uint32_t type) {
    types.push_back(type);
    EXPECT_EQ(event.integer(EventField::Kind), 0);
    tap->enable();
  });
  tap->enable();
  stream_.disableTaps(tapEvent::disabledByTimeout);
  EXPECT_TRUE(stream_.taps().front().isEnabled);
  stream_.disableTaps(tapEvent::disabledByUserInput);
  EXPECT_TRUE(stream_.taps().front().isEnabled);
  EXPECT_THAT(types, testing::ElementsAre(0xFFFFFFFE, 0xFFFFFFFF));
}

TEST_F(MacEventsTest, MayEndTheTapWithinItsCall) {
  const int before = EventStream::liveObjects();
  std::unique_ptr<EventTap> tap;
  int calls = 0;
  tap = events_.createTap([&](const Event&, std::uint32_t) {
    ++calls;
    tap.reset();
  });
  tap->enable();
  stream_.send({});
  stream_.send({});
  EXPECT_EQ(calls, 1);
  EXPECT_TRUE(stream_.taps().empty());
  EXPECT_EQ(EventStream::liveObjects(), before);
}

TEST_F(MacEventsTest, GivesNoTapWithoutPermission) {
  stream_.refusesTaps = true;
  EXPECT_EQ(events_.createTap([](const Event&, std::uint32_t) {}), nullptr);
}

TEST_F(MacEventsTest, MonitorsPointerMovesOverOtherApplications) {
  int moves = 0;
  Registration monitor = events_.monitorGlobalMouseMoved([&] { ++moves; });
  EXPECT_THAT(gnustep::eventMonitors(),
              testing::ElementsAre(gnustep::MonitorRecord{.isGlobal = true, .mask = 1U << 5}));
  gnustep::movePointerOutside();
  monitor.cancel();
  gnustep::movePointerOutside();
  EXPECT_EQ(moves, 1);
  EXPECT_TRUE(gnustep::eventMonitors().empty());
}

TEST_F(MacEventsTest, GivesAnEmptyRegistrationWithoutAMonitor) {
  gnustep::refuseMonitors(true);
  EXPECT_FALSE(events_.monitorGlobalMouseMoved([] {}));
}

NSEvent* keyDown(unsigned short code) {
  return [NSEvent keyEventWithType:NSEventTypeKeyDown
                          location:NSZeroPoint
                     modifierFlags:0
                         timestamp:0
                      windowNumber:0
                           context:nil
                        characters:@"x"
       charactersIgnoringModifiers:@"x"
                         isARepeat:NO
                           keyCode:code];
}

TEST_F(MacEventsTest, MonitorsKeyPressesAndMaySwallowThem) {
  std::vector<std::uint16_t> codes;
  const Registration outer = events_.monitorLocalKeyDown([&](const KeyEvent& event) {
    codes.push_back(event.code());
    return event.code() == keyCode::escape ? KeyDisposition::Swallow : KeyDisposition::PassOn;
  });
  int passedOn = 0;
  const Registration inner = events_.monitorLocalKeyDown([&](const KeyEvent&) {
    ++passedOn;
    return KeyDisposition::PassOn;
  });
  EXPECT_EQ(gnustep::eventMonitors().front().mask, 0x400U);
  [NSApp sendEvent:keyDown(keyCode::escape)];
  [NSApp sendEvent:keyDown(keyCode::returnKey)];
  EXPECT_THAT(codes, testing::ElementsAre(53, 36));
  EXPECT_EQ(passedOn, 1);
}

TEST_F(MacEventsTest, MayEndAMonitorWithinItsCall) {
  Registration monitor;
  int calls = 0;
  monitor = events_.monitorLocalKeyDown([&](const KeyEvent&) {
    ++calls;
    monitor.cancel();
    return KeyDisposition::Swallow;
  });
  [NSApp sendEvent:keyDown(0)];
  [NSApp sendEvent:keyDown(0)];
  EXPECT_EQ(calls, 1);
}

TEST_F(MacEventsTest, TellsWhereThePointerIs) {
  const NSPoint location = [NSEvent mouseLocation];
  EXPECT_EQ(events_.mouseLocation(), (Point{location.x, location.y}));
}

}  // namespace
}  // namespace roomlattice::platform::macos
