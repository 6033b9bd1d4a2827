#import "tests/macos/ProgramFixture.h"

#import <QuartzCore/QuartzCore.h>

#import "platform/macos/Fonts.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "tests/macos/MainLoop.h"
#include "tests/macos/supplement/Application.h"
#include "tests/macos/supplement/DispatchRecord.h"
#include "tests/macos/supplement/EventMonitors.h"
#include "tests/macos/supplement/StatusBar.h"

namespace roomlattice::platform::macos {
namespace {

using gnustep::EventStream;
using gnustep::PostedEvent;
using gnustep::TapRecord;
using tests::runUntil;
using Kind = gnustep::FieldRecord::Kind;
using ProgramTest = ProgramFixture;

TEST_F(ProgramTest, LaunchesAsAnAccessoryWithItsTapMonitorsAndTimer) {
  run([this] {
    EXPECT_EQ(gnustep::activationPolicy(), 1);
    EXPECT_TRUE([[NSApp delegate] respondsToSelector:@selector(applicationSupportsSecureRestorableState:)]);
    EXPECT_EQ(title(), " Desktop 2 ");
    const TapRecord tap{.location = 1,
                        .placement = 0,
                        .options = 1,
                        .mask = ~std::uint64_t{0},
                        .sourceOrder = 0,
                        .isInCommonModes = true,
                        .isEnabled = true};
    EXPECT_THAT(stream_.taps(), testing::ElementsAre(tap));
    const gnustep::MonitorRecord moves{.isGlobal = true, .mask = 32};
    EXPECT_THAT(gnustep::eventMonitors(), testing::ElementsAre(moves, moves));
    const gnustep::TimerRecord priming{.interval = 500'000'000, .leeway = 0};
    EXPECT_THAT(gnustep::runningTimers(), testing::ElementsAre(priming));
  });
  EXPECT_TRUE(stream_.taps().empty());
  EXPECT_TRUE(gnustep::eventMonitors().empty());
  EXPECT_TRUE(gnustep::runningTimers().empty());
  EXPECT_EQ([gnustep::statusItems() count], 0U);
  EXPECT_EQ(EventStream::liveObjects(), 0);
}

TEST_F(ProgramTest, PutsTheActiveDesktopsLabelInTheMiddle) {
  run([this] {
    NSWindow* window = label(12);
    ASSERT_NE(window, nil);
    const Size text = textSize("Desktop 2", {.size = 160.0, .weight = FontWeight::Heavy});
    const Size size{std::min(text.width + 160.0, 1280.0 * 0.9), std::min(text.height + 120.0, 800.0 * 0.6)};
    const Rect expected{{640.0 - size.width * 0.5, 400.0 - size.height * 0.5}, size};
    EXPECT_NEAR(NSMinX([window frame]), expected.origin.x, 1.0);
    EXPECT_NEAR(NSMinY([window frame]), expected.origin.y, 1.0);
    EXPECT_NEAR(NSWidth([window frame]), expected.size.width, 1.0);
    EXPECT_NEAR(NSHeight([window frame]), expected.size.height, 1.0);
    EXPECT_EQ([window styleMask], 0U);
    EXPECT_EQ([window level], 3);
    EXPECT_EQ([window collectionBehavior], 324U);
    EXPECT_EQ([window alphaValue], 0.0);
    EXPECT_TRUE([window isVisible]);
    EXPECT_EQ(labelText(12), "Desktop 2");
    EXPECT_EQ([[[window contentView] layer] cornerRadius], 40.0);
  });
}

std::vector<PostedEvent> animatedSwipe(double sign) {
  std::vector<PostedEvent> events{{.location = 1, .fields = swipeFields(1, sign * 0.001, sign * 0.5)}};
  for (int i = 1; i <= 8; ++i) {
    events.push_back({.location = 1, .fields = swipeFields(2, sign * i / 8.0, sign * 1.5)});
  }
  events.push_back({.location = 1, .fields = swipeFields(4, sign, sign * 1.5)});
  return events;
}

TEST_F(ProgramTest, ToursTheDesktopsWithAnimatedSwipesAndComesBack) {
  server_.spaces.erase(server_.spaces.begin() + 2);
  server_.followSwipes();
  run([this] {
    ASSERT_TRUE(runUntil([this] { return stream_.posted.size() == 40; }));
    ASSERT_TRUE(runUntil([this] { return title() == " Desktop 2 "; }));
    for (const std::uint64_t space : {11U, 12U, 14U}) {
      EXPECT_NE(label(space), nil) << space;
    }
  });
  std::vector<PostedEvent> expected;
  for (const double sign : {1.0, -1.0, -1.0, 1.0}) {
    const std::vector<PostedEvent> swipe = animatedSwipe(sign);
    expected.insert(expected.end(), swipe.begin(), swipe.end());
  }
  EXPECT_EQ(stream_.posted, expected);
}

TEST_F(ProgramTest, ShowsLabelsWhenTheUserSwipes) {
  run([this] {
    stream_.send(
        {{55, Kind::Integer, 30.0}, {110, Kind::Integer, 23.0}, {132, Kind::Integer, 1.0}, {129, Kind::Double, -0.5}});
    ASSERT_TRUE(runUntil([this] { return label(11) != nil; }));
    EXPECT_NEAR([label(11) alphaValue], 0.78, 1e-6);
    const auto number = static_cast<std::int64_t>([label(11) windowNumber]);
    EXPECT_THAT(server_.windows.at(number), testing::ElementsAre(11U));
  });
}

}  // namespace
}  // namespace roomlattice::platform::macos
