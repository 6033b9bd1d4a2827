#include "app/AppDelegate.h"

#include "spaces/SpaceManager.h"
#include "tests/support/ForwardingEvents.h"
#include "tests/support/ForwardingPlatform.h"
#include "tests/support/ForwardingUserInterface.h"
#include "tests/support/ProgramFixture.h"

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::DockSwipe;

using platform::simulated::SimulatedWindow;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// A platform that notes down in which order the program takes its places in the system.
class BuildingDiary final : public ForwardingPlatform {
 public:
  explicit BuildingDiary(platform::Platform& inner)
      : ForwardingPlatform(inner), events_(inner.events(), entries), userInterface_(inner.userInterface(), entries) {}

  platform::Events& events() override { return events_; }
  platform::UserInterface& userInterface() override { return userInterface_; }

  std::vector<std::string> entries;

 private:
  class Events final : public ForwardingEvents {
   public:
    Events(platform::Events& inner, std::vector<std::string>& entries) : ForwardingEvents(inner), entries_(entries) {}

    std::unique_ptr<platform::EventTap> createTap(TapHandler handler) override {
      entries_.emplace_back("tap");
      return ForwardingEvents::createTap(std::move(handler));
    }
    platform::Registration monitorGlobalMouseMoved(std::function<void()> handler) override {
      entries_.emplace_back("monitor");
      return ForwardingEvents::monitorGlobalMouseMoved(std::move(handler));
    }

   private:
    std::vector<std::string>& entries_;
  };

  class UserInterface final : public ForwardingUserInterface {
   public:
    UserInterface(platform::UserInterface& inner, std::vector<std::string>& entries)
        : ForwardingUserInterface(inner), entries_(entries) {}

    std::unique_ptr<platform::StatusItem> createStatusItem(const platform::StatusItemLength& length) override {
      entries_.emplace_back("status item");
      return ForwardingUserInterface::createStatusItem(length);
    }
    std::unique_ptr<platform::Window> createOverlayWindow(const platform::OverlayWindowOptions& options) override {
      entries_.emplace_back("label");
      return ForwardingUserInterface::createOverlayWindow(options);
    }

   private:
    std::vector<std::string>& entries_;
  };

  Events events_;
  UserInterface userInterface_;
};

class AppDelegateTest : public ProgramFixture {
 protected:
  using ProgramFixture::ProgramFixture;

  platform::Registration onFirst(std::string_view notification, std::function<void()> act) {
    return platform().notifications().defaultCenter().observe(notification,
                                                              [act = std::move(act), done = false]() mutable {
                                                                if (!std::exchange(done, true)) {
                                                                  act();
                                                                }
                                                              });
  }

  std::string title() { return desktop.statusItem()->content().title.text; }

  std::vector<std::string> labelsShown() {
    std::vector<std::string> texts;
    for (const SimulatedWindow* window : desktop.windows().overlays()) {
      if (window->level() == platform::WindowLevel::Floating && window->alpha() > 0.0) {
        texts.push_back(window->texts().at(0));
      }
    }
    return texts;
  }

  std::vector<std::string> logged() { return desktop.log().texts(); }

  static constexpr platform::Point corner{1.0, 899.0};
};

class AppDelegateOfOneDesktopTest : public AppDelegateTest {
 protected:
  AppDelegateOfOneDesktopTest() : AppDelegateTest(1) {}
};

TEST_F(AppDelegateTest, BuildsTheMenuBarThenTheLabelsThenTheWatchers) {
  BuildingDiary diary(platform());
  AppDelegate delegate(diary);
  delegate.applicationDidFinishLaunching();
  EXPECT_THAT(diary.entries, ElementsAre("status item", "label", "monitor", "monitor", "tap"));
}

TEST_F(AppDelegateTest, TakesTheFirstSnapshotBeforeItBuildsAnything) {
  bool listKnown = false;
  bool somethingBuilt = true;
  const auto observation = onFirst(SpaceManager::didChange, [&] {
    listKnown = SpaceManager::shared().spaces().size() == 3;
    somethingBuilt = desktop.statusItem() != nullptr || !desktop.windows().overlays().empty();
  });
  startProgram();
  EXPECT_TRUE(listKnown);
  EXPECT_FALSE(somethingBuilt);
}

TEST_F(AppDelegateTest, HearsOfAChangeDuringTheFirstSnapshot) {
  const auto observation = onFirst(SpaceManager::didChange, [this] { desktop.switchTo(desktop.desktopAt(2)); });
  startProgram();
  EXPECT_EQ(SpaceManager::shared().activeSpaceID(), desktop.desktopAt(2));
  EXPECT_EQ(title(), " Desktop 3 ");
}

TEST_F(AppDelegateTest, FollowsTheDesktopFromTheStart) {
  startProgram();
  EXPECT_EQ(title(), " Desktop 1 ");
  desktop.switchTo(desktop.desktopAt(1));
  EXPECT_EQ(title(), " Desktop 2 ");
}

TEST_F(AppDelegateTest, LooksAtTheDesktopsAgainOnlyWhenAnotherOneIsActive) {
  startProgram();
  desktop.overrideManagedDisplaySpaces(platform::Value());
  desktop.setScreens({platform::Rect{{0.0, 0.0}, {1024.0, 768.0}}});
  desktop.setAppearance(platform::Appearance::Dark);
  desktop.sleepFor(1s);
  EXPECT_THAT(SpaceManager::shared().spaces(), SizeIs(3));
  desktop.switchTo(desktop.desktopAt(1));
  EXPECT_THAT(SpaceManager::shared().spaces(), IsEmpty());
}

TEST_F(AppDelegateTest, StartsTheTourAfterOneAndAHalfSeconds) {
  startProgram();
  desktop.advance(1500ms - 1ns);
  EXPECT_THAT(logged(), IsEmpty());
  desktop.advance(1ns);
  EXPECT_THAT(logged(), ElementsAre("[Roomlattice] tour start: 4 steps"));
}

TEST_F(AppDelegateTest, ToursFromTheDesktopThatIsActiveByThen) {
  startProgram();
  desktop.advance(1s);
  desktop.switchTo(desktop.desktopAt(1));
  desktop.addDesktop();
  desktop.advance(30s);
  EXPECT_THAT(logged(), ElementsAre("[Roomlattice] tour start: 6 steps", "[Roomlattice] tour end"));
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(1));
}

TEST_F(AppDelegateTest, ToursOnce) {
  startProgram();
  desktop.advance(1h);
  EXPECT_THAT(logged(), SizeIs(2));
}

TEST_F(AppDelegateOfOneDesktopTest, HasNothingToTour) {
  int notifications = 0;
  const auto start = onFirst(SpaceManager::tourWillStart, [&] { ++notifications; });
  const auto end = onFirst(SpaceManager::tourDidEnd, [&] { ++notifications; });
  startProgram();
  desktop.advance(30s);
  EXPECT_EQ(notifications, 0);
  EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(AppDelegateTest, ShowsTheLabelAheadOfASwipeBeforeTheTour) {
  startProgram();
  user.movesFingers(DockSwipe::Began, {.progress = 0.1, .velocity = 0.5});
  desktop.advance(0s);
  EXPECT_THAT(labelsShown(), ElementsAre("Desktop 2"));
}

TEST_F(AppDelegateTest, HandsTheDirectionOfASwipeOn) {
  desktop.switchTo(desktop.desktopAt(1));
  startProgram();
  user.movesFingers(DockSwipe::Began, {.progress = -0.1, .velocity = -0.5});
  desktop.advance(0s);
  EXPECT_THAT(labelsShown(), ElementsAre("Desktop 1"));
}

TEST_F(AppDelegateTest, ShowsAllLabelsAtTheCornerBeforeTheTour) {
  startProgram();
  user.swipes(Right);
  desktop.advance(700ms);
  ASSERT_EQ(desktop.activeSpace(), desktop.desktopAt(1));
  user.movesPointerTo(corner);
  desktop.advance(500ms);
  EXPECT_THAT(labelsShown(), ElementsAre("Desktop 1"));
  EXPECT_EQ(desktop.windowsOn(desktop.desktopAt(0)).at(0)->alpha(), 1.0);
}

TEST_F(AppDelegateTest, GoesOnWithoutPermission) {
  desktop.faults.accessibilityDenied = true;
  startProgram();
  EXPECT_THAT(logged(), ElementsAre("[Roomlattice] SwipeWatcher: failed to create event tap (need Accessibility)"));
  EXPECT_EQ(title(), " Desktop 1 ");
  desktop.advance(1500ms);
  EXPECT_EQ(logged().back(), "[Roomlattice] tour start: 4 steps");
}

TEST_F(AppDelegateTest, GoesOnWithoutPointerMonitors) {
  desktop.faults.pointerMonitorsRefused = true;
  startProgram();
  user.movesPointerTo(corner);
  desktop.advance(30s);
  EXPECT_THAT(logged(), ElementsAre("[Roomlattice] tour start: 4 steps", "[Roomlattice] tour end"));
}

TEST_F(AppDelegateTest, GoesOnWithoutDesktops) {
  desktop.overrideManagedDisplaySpaces(platform::Value());
  startProgram();
  EXPECT_EQ(title(), "Desktops");
  EXPECT_THAT(desktop.windows().overlays(), IsEmpty());
  desktop.advance(30s);
  EXPECT_THAT(logged(), IsEmpty());
  desktop.overrideManagedDisplaySpaces({});
  desktop.switchTo(desktop.desktopAt(1));
  EXPECT_EQ(title(), " Desktop 2 ");
  EXPECT_THAT(desktop.windows().overlays(), SizeIs(1));
}

TEST_F(AppDelegateTest, LeavesNothingBehind) {
  startProgram();
  desktop.advance(2s);
  quitProgram();
  user.swipes(Right);
  user.movesPointerTo(corner);
  desktop.advance(60s);
  EXPECT_THAT(desktop.windows().overlays(), IsEmpty());
  EXPECT_EQ(desktop.statusItem(), nullptr);
  EXPECT_THAT(logged(), ElementsAre("[Roomlattice] tour start: 4 steps"));
}

TEST_F(AppDelegateTest, DoesNothingOnceItHasGone) {
  {
    AppDelegate delegate(platform());
    delegate.applicationDidFinishLaunching();
    user.movesFingers(DockSwipe::Began, {.progress = 0.1, .velocity = 0.5});
    user.movesPointerTo(corner);
  }
  desktop.advance(60s);
  EXPECT_THAT(desktop.windows().overlays(), IsEmpty());
  EXPECT_THAT(logged(), IsEmpty());
}

}  // namespace
}  // namespace roomlattice::tests
