#include "app/AppDelegate.h"
#include "labels/SignView.h"
#include "tests/labels/LabelFixture.h"
#include "tests/support/ForwardingPlatform.h"
#include "tests/support/ForwardingUserInterface.h"
#include "tests/support/ForwardingWindow.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::SpaceID;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::SizeIs;

/// Puts another window in front of each overlay window.
using Disguise = std::function<std::unique_ptr<platform::Window>(std::unique_ptr<platform::Window>)>;

/// A platform whose overlay windows are not quite what they should be.
class DisguisedWindows final : public ForwardingPlatform {
 public:
  DisguisedWindows(platform::Platform& inner, Disguise disguise)
      : ForwardingPlatform(inner), userInterface_(inner.userInterface(), std::move(disguise)) {}

  platform::UserInterface& userInterface() override { return userInterface_; }

 private:
  class UserInterface final : public ForwardingUserInterface {
   public:
    UserInterface(platform::UserInterface& inner, Disguise disguise)
        : ForwardingUserInterface(inner), disguise_(std::move(disguise)) {}

    std::unique_ptr<platform::Window> createOverlayWindow(const platform::OverlayWindowOptions& options) override {
      return disguise_(ForwardingUserInterface::createOverlayWindow(options));
    }

   private:
    Disguise disguise_;
  };

  UserInterface userInterface_;
};

/// Notes whether there is something to be seen in it when it is ordered in.
class NotingWindow final : public ForwardingWindow {
 public:
  NotingWindow(std::unique_ptr<platform::Window> inner, std::vector<bool>& hadContent)
      : ForwardingWindow(std::move(inner)), hadContent_(hadContent) {}

  void orderFront() override {
    hadContent_.push_back(contentView() != nullptr);
    ForwardingWindow::orderFront();
  }

 private:
  std::vector<bool>& hadContent_;
};

/// A direct set does not end a fade before its time.
class StubbornlyFadingWindow final : public ForwardingWindow {
 public:
  StubbornlyFadingWindow(std::unique_ptr<platform::Window> inner, const platform::simulated::VirtualTime& time)
      : ForwardingWindow(std::move(inner)), time_(time) {}

  void setAlpha(double alpha) override {
    if (time_.now() >= fadeEnd_) {
      ForwardingWindow::setAlpha(alpha);
    }
  }
  void animateAlpha(double alpha, platform::Duration duration, std::function<void()> completion) override {
    fadeEnd_ = time_.now() + duration;
    ForwardingWindow::animateAlpha(alpha, duration, std::move(completion));
  }

 private:
  const platform::simulated::VirtualTime& time_;
  platform::Duration fadeEnd_{0};
};

/// Even an animation of no duration takes its time.
class SlowlyFadingWindow final : public ForwardingWindow {
 public:
  using ForwardingWindow::ForwardingWindow;

  void animateAlpha(double alpha, platform::Duration duration, std::function<void()> completion) override {
    ForwardingWindow::animateAlpha(alpha, std::max<platform::Duration>(duration, 1ms), std::move(completion));
  }
};

class SignWindowsTest : public LabelFixture {
 protected:
  /// Runs the whole program until the tour is over and all labels are there, and a priming tick just over.
  void runProgram(Disguise disguise) {
    windows_.emplace(platform(), std::move(disguise));
    program_.emplace(*windows_);
    program_->applicationDidFinishLaunching();
    desktop.advance(20s);
  }

  /// The same; then all labels are shown and hidden again, and a swipe begins while they fade out.
  void runProgramUntilASwipeMeetsAFade(Disguise disguise) {
    runProgram(std::move(disguise));
    user.movesPointerTo({1.0, 899.0});
    desktop.advance(600ms);
    ASSERT_THAT(alphas(), ElementsAre(0.0, 1.0, 1.0));
    user.movesPointerTo(overTheLabels);
    desktop.advance(70ms);
    ASSERT_DOUBLE_EQ(alpha(1), 0.8);
    user.swipes(Right);
    desktop.advance(0s);
  }

 private:
  std::optional<DisguisedWindows> windows_;
  std::optional<AppDelegate> program_;
};

TEST_F(SignWindowsTest, IsOrderedInWithItsContent) {
  std::vector<bool> hadContent;
  runProgram([&hadContent](auto inner) { return std::make_unique<NotingWindow>(std::move(inner), hadContent); });
  // The three labels and the tour's overlay.
  EXPECT_THAT(hadContent, SizeIs(4));
  EXPECT_THAT(hadContent, Each(true));
}

TEST_F(SignWindowsTest, HasTheSwipeOpacityEvenWhereADirectSetEndsNoFade) {
  runProgramUntilASwipeMeetsAFade(
      [this](auto inner) { return std::make_unique<StubbornlyFadingWindow>(std::move(inner), desktop.time()); });
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78, 0.78));
  desktop.advance(200ms);
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78, 0.78));
}

TEST_F(SignWindowsTest, HasTheSwipeOpacityAtOnceEvenWhereEveryAnimationTakesTime) {
  runProgramUntilASwipeMeetsAFade([](auto inner) { return std::make_unique<SlowlyFadingWindow>(std::move(inner)); });
  EXPECT_THAT(alphas(), ElementsAre(0.0, 0.78, 0.78));
  EXPECT_FALSE(label(1).isAnimating());
  EXPECT_FALSE(label(2).isAnimating());
}

TEST_F(SignWindowsTest, KeepsItsTextWhenPreferencesAndScreensChange) {
  startVisitedLabels();
  dynamic_cast<SignView&>(*label(1).contentView()).setText("Written by another hand");
  preferences().setSignTextSize(80.0);
  EXPECT_THAT(label(1).texts(), ElementsAre("Written by another hand"));
  desktop.setScreens({{{200.0, 100.0}, {1000.0, 500.0}}});
  EXPECT_THAT(label(1).texts(), ElementsAre("Written by another hand"));
  EXPECT_EQ(label(1).frame(), label(0).frame());
}

TEST_F(SignWindowsTest, HasItsTextAndItsFrameAgainWheneverDesktopsChange) {
  startVisitedLabels();
  post(SpaceManager::didChange);
  const platform::Rect frame = label(1).frame();
  for (const bool isRenamed : {true, false}) {
    if (isRenamed) {
      dynamic_cast<SignView&>(*label(1).contentView()).setText("Written by another hand");
    } else {
      label(1).setFrame({{1.0, 2.0}, {3.0, 4.0}});
    }
    post(SpaceManager::didChange);
    EXPECT_THAT(label(1).texts(), ElementsAre("Desktop 2"));
    EXPECT_EQ(label(1).frame(), frame);
  }
}

TEST_F(SignWindowsTest, HasTheNameOfItsDesktopAlthoughAFullScreenSpaceHasTheSameIdentifier) {
  startVisitedLabels();
  std::vector<SpaceInfo> spaces = SpaceManager::shared().spaces();
  spaces.push_back({.spaceID = spaces[1].spaceID, .uuid = "F", .displayUUID = spaces[1].displayUUID, .type = 4});
  SpaceManager::shared().update(spaces, spaces[0].spaceID);
  EXPECT_THAT(label(1).texts(), ElementsAre("Desktop 2"));
}

TEST_F(SignWindowsTest, NeedsNoScreenBeforeThereIsALabel) {
  desktop.overrideActiveSpace(4711);
  desktop.setScreens({});
  startLabels();
  SpaceManager::shared().setName("Mail", SpaceManager::shared().spaces().front());
  preferences().setSignTextSize(80.0);
  EXPECT_THAT(labels(), SizeIs(0));
}

TEST_F(SignWindowsTest, IsOutOfSightOnceItsDesktopHasGoneThoughItIsAboutToFadeOut) {
  arriveOnTheSecond();
  std::size_t shown = 0;
  beforeLabelsHearOfAChange = [&] { shown = labels().size(); };
  ASSERT_THAT(labels(), SizeIs(3));
  desktop.removeDesktop(desktop.desktopAt(1));
  EXPECT_EQ(shown, 2U);
}

TEST_F(SignWindowsTest, HasItsTextAgainOnceItsDesktopIsInFront) {
  startVisitedLabels();
  dynamic_cast<SignView&>(*label(1).contentView()).setText("Written by another hand");
  desktop.switchTo(desktop.desktopAt(1));
  EXPECT_THAT(label(1).texts(), ElementsAre("Desktop 2"));
}

/// The main screen may become another one without anybody being told.
class SignWindowsOnTwoScreensTest : public LabelFixture {
 protected:
  SignWindowsOnTwoScreensTest() {
    desktop.setScreens({{{}, {1440.0, 900.0}}, {{1440.0, 0.0}, {1000.0, 500.0}}});
    startVisitedLabels();
    // Places them all, as every change of the list does where it has not been done for this screen.
    post(SpaceManager::didChange);
    frame_ = label(1).frame();
    desktop.setMainScreen(1);
  }

  void renameFirstBackOnTheFirstScreen() {
    desktop.setMainScreen(0);
    SpaceManager::shared().setName("Home", SpaceManager::shared().spaces().front());
  }

  platform::Rect frame_;
};

TEST_F(SignWindowsOnTwoScreensTest, GoBackAfterAPreferencePlacedThemOnTheOther) {
  preferences().setInstantMenuSwitch(true);
  ASSERT_NE(label(1).frame(), frame_);
  renameFirstBackOnTheFirstScreen();
  EXPECT_EQ(label(1).frame(), frame_);
}

TEST_F(SignWindowsOnTwoScreensTest, GoBackThoughTheyWereMadeOnTheOther) {
  desktop.setMainScreen(0);
  const SpaceID added = desktop.addDesktop();
  desktop.reportActiveSpaceChange();
  desktop.setMainScreen(1);
  desktop.switchTo(added);
  ASSERT_NE(labelOn(added)->frame(), frame_);
  renameFirstBackOnTheFirstScreen();
  EXPECT_EQ(labelOn(added)->frame(), frame_);
}

}  // namespace
}  // namespace roomlattice::tests
