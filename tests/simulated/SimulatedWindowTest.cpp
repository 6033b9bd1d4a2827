#include "platform/simulated/SimulatedWindow.h"

#include "tests/support/SimulatedFixture.h"
#include "tests/support/TestView.h"

#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::CollectionBehavior;
using platform::SpaceID;
using platform::Window;
using platform::simulated::WindowWrites;

class SimulatedWindowTest : public SimulatedFixture {
 protected:
  std::unique_ptr<Window> make(CollectionBehavior behavior = CollectionBehavior::Managed) {
    return platform().userInterface().createOverlayWindow(
        {.frame = {{10.0, 20.0}, {30.0, 40.0}}, .collectionBehavior = behavior, .alpha = 0.5});
  }

  /// What the desktop sees of it.
  const platform::simulated::SimulatedWindow& seen(const Window& window) {
    return *desktop.windows().find(window.number());
  }
};

TEST_F(SimulatedWindowTest, StartsAsOrderedAndOrderedOut) {
  const auto window = make();
  EXPECT_EQ(window->alpha(), 0.5);
  EXPECT_EQ(window->frame(), (platform::Rect{{10.0, 20.0}, {30.0, 40.0}}));
  EXPECT_EQ(window->contentView(), nullptr);
  EXPECT_FALSE(seen(*window).isOrderedIn());
  EXPECT_EQ(seen(*window).writes(), WindowWrites());
}

TEST_F(SimulatedWindowTest, MovesItsOpacityLinearly) {
  const auto window = make();
  window->setAlpha(1.0);
  window->animateAlpha(0.0, 400ms);
  EXPECT_EQ(window->alpha(), 1.0);
  desktop.advance(100ms);
  EXPECT_EQ(window->alpha(), 0.75);
  desktop.advance(200ms);
  EXPECT_EQ(window->alpha(), 0.25);
  desktop.advance(100ms);
  EXPECT_EQ(window->alpha(), 0.0);
  desktop.advance(1s);
  EXPECT_EQ(window->alpha(), 0.0);
}

TEST_F(SimulatedWindowTest, CallsTheCompletionAfterTheEndOfAnAnimation) {
  const auto window = make();
  bool completed = false;
  window->animateAlpha(1.0, 200ms, [&] { completed = true; });
  desktop.advance(199ms);
  EXPECT_FALSE(completed);
  desktop.advance(1ms);
  EXPECT_TRUE(completed);
  EXPECT_FALSE(seen(*window).isAnimating());
}

TEST_F(SimulatedWindowTest, EndsAnAnimationWithADirectSetAndDropsItsCompletion) {
  const auto window = make();
  bool completed = false;
  window->animateAlpha(1.0, 200ms, [&] { completed = true; });
  desktop.advance(100ms);
  window->setAlpha(0.2);
  EXPECT_EQ(window->alpha(), 0.2);
  desktop.advance(1s);
  EXPECT_EQ(window->alpha(), 0.2);
  EXPECT_FALSE(completed);
}

TEST_F(SimulatedWindowTest, GoesOnFromWhereAnAnimationWasWhenAnotherTakesItsPlace) {
  const auto window = make();
  window->setAlpha(0.0);
  bool firstCompleted = false;
  bool secondCompleted = false;
  window->animateAlpha(1.0, 400ms, [&] { firstCompleted = true; });
  desktop.advance(200ms);
  window->animateAlpha(0.0, 200ms, [&] { secondCompleted = true; });
  EXPECT_EQ(window->alpha(), 0.5);
  desktop.advance(100ms);
  EXPECT_EQ(window->alpha(), 0.25);
  desktop.advance(1s);
  EXPECT_EQ(window->alpha(), 0.0);
  EXPECT_FALSE(firstCompleted);
  EXPECT_TRUE(secondCompleted);
}

TEST_F(SimulatedWindowTest, SetsItsOpacityAtOnceInNoTimeAndCompletesLater) {
  const auto window = make();
  bool completed = false;
  window->animateAlpha(0.9, 0s, [&] { completed = true; });
  EXPECT_EQ(window->alpha(), 0.9);
  EXPECT_FALSE(seen(*window).isAnimating());
  EXPECT_FALSE(completed);
  desktop.advance(0s);
  EXPECT_TRUE(completed);
}

TEST_F(SimulatedWindowTest, MayBeOwnedByTheCompletionOfItsAnimation) {
  std::shared_ptr<Window> window = make();
  Window& animated = *window;
  animated.orderFront();
  animated.animateAlpha(0.0, 250ms, [window = std::move(window)] { window->orderOut(); });
  desktop.advance(249ms);
  EXPECT_EQ(desktop.windows().overlays().size(), 1U);
  desktop.advance(1ms);
  EXPECT_TRUE(desktop.windows().overlays().empty());
}

TEST_F(SimulatedWindowTest, GoesWithThePlatformWhenACompletionOwnsIt) {
  std::shared_ptr<Window> window = make();
  Window& animated = *window;
  animated.animateAlpha(0.0, 250ms, [window = std::move(window)] {});
  relaunch();
  EXPECT_TRUE(desktop.windows().overlays().empty());
}

TEST_F(SimulatedWindowTest, ForgetsItsAnimationWhenItGoes) {
  auto window = make();
  bool completed = false;
  window->animateAlpha(0.0, 250ms, [&] { completed = true; });
  window.reset();
  desktop.advance(1s);
  EXPECT_FALSE(completed);
}

TEST_F(SimulatedWindowTest, ComesUpOnTheActiveDesktop) {
  desktop.switchTo(desktop.desktopAt(1));
  const auto window = make();
  window->orderFront();
  EXPECT_EQ(seen(*window).spaces(), std::set<SpaceID>{desktop.desktopAt(1)});
}

TEST_F(SimulatedWindowTest, ComesUpWhereItIsAttachedAlready) {
  const auto window = make();
  platform().windowServer().addWindowToSpace(window->number(), desktop.desktopAt(2));
  window->orderFront();
  EXPECT_EQ(seen(*window).spaces(), std::set<SpaceID>{desktop.desktopAt(2)});
}

TEST_F(SimulatedWindowTest, IsOnEveryDesktopWhenItJoinsAll) {
  const auto window = make(CollectionBehavior::CanJoinAllSpaces | CollectionBehavior::Stationary);
  window->orderFront();
  EXPECT_TRUE(seen(*window).spaces().empty());
  EXPECT_TRUE(seen(*window).isOn(desktop.desktopAt(0)));
  EXPECT_TRUE(seen(*window).isOn(desktop.desktopAt(2)));
}

TEST_F(SimulatedWindowTest, IsOnNoDesktopWhileOrderedOut) {
  const auto window = make(CollectionBehavior::CanJoinAllSpaces);
  EXPECT_FALSE(seen(*window).isOn(desktop.desktopAt(0)));
  window->orderFront();
  window->orderOut();
  EXPECT_FALSE(seen(*window).isOn(desktop.desktopAt(0)));
}

TEST_F(SimulatedWindowTest, CountsEveryWrite) {
  const auto window = make();
  window->setAlpha(0.5);
  window->setAlpha(0.5);
  window->animateAlpha(1.0, 1s);
  window->setFrame(window->frame());
  window->setCollectionBehavior(CollectionBehavior::Transient);
  window->setContentView(std::make_unique<TestView>());
  window->contentView()->setFrame({{}, {300.0, 40.0}});
  EXPECT_EQ(seen(*window).writes(), (WindowWrites{.alpha = 3, .frame = 1, .content = 2, .collectionBehavior = 1}));
  EXPECT_EQ(seen(*window).collectionBehavior(), CollectionBehavior::Transient);
}

TEST_F(SimulatedWindowTest, CountsNoWriteOfAnAnimationThatGoesOn) {
  const auto window = make();
  window->animateAlpha(1.0, 1s);
  desktop.advance(2s);
  EXPECT_EQ(seen(*window).writes().alpha, 1);
}

TEST_F(SimulatedWindowTest, HostsItsContentViewAsLongAsItIsThat) {
  const auto window = make();
  EXPECT_TRUE(seen(*window).texts().empty());
  auto view = std::make_unique<TestView>();
  TestView& shown = *view;
  window->setContentView(std::move(view));
  EXPECT_EQ(window->contentView(), &shown);
  EXPECT_NE(shown.host(), nullptr);
  EXPECT_EQ(seen(*window).texts(), std::vector<std::string>{"Row"});
  window->setContentView(nullptr);
  EXPECT_TRUE(seen(*window).texts().empty());
}

TEST_F(SimulatedWindowTest, NeverTakesTheKeyboard) {
  const auto window = make();
  window->setContentView(std::make_unique<TestView>());
  window->orderFront();
  platform::TextField* const field = window->contentView()->host()->textField();
  ASSERT_NE(field, nullptr);
  field->focusAndSelectAll();
  EXPECT_FALSE(field->interpret(platform::simulated::SimulatedKeyEvent(0, "a")));
}

}  // namespace
}  // namespace roomlattice::tests
