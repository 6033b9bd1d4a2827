#include "platform/x11/windows/X11Window.h"

#include "tests/x11/session/PlainWindow.h"
#include "tests/x11/windows/X11WindowFixture.h"

#include <optional>

namespace roomlattice::tests {
namespace {

/// A session in which overlay windows are mapped only while their desktop is in front.
class X11WindowInFrontTest : public X11WindowTest, public ::testing::WithParamInterface<WindowManagerKind> {
 protected:
  X11WindowInFrontTest() : X11WindowTest({.windowManager = GetParam(), .desktops = 2}) {
    if (GetParam() == WindowManagerKind::I3) {
      // It has the desktops that are in use.
      first_.emplace(QRect(900, 100, 100, 100), Qt::green);
      ui_.session.run({"i3-msg", "workspace", "2"});
      second_.emplace(QRect(900, 100, 100, 100), Qt::green);
      switchTo(0);
    }
  }

  bool isShownWhole() {
    return waitFor([this] {
      const QImage image = screenImage(ui_.connection(), labelPixels);
      // The corners are cut round.
      return countPixels(image, Qt::red) > 0.97 * labelPixels.width() * labelPixels.height() &&
             similar(image.pixelColor(labelPixels.width() / 2, labelPixels.height() - 1), Qt::red);
    });
  }

  bool isGone() {
    return waitFor([this] { return countPixels(screenImage(ui_.connection(), labelPixels), Qt::red) == 0; });
  }

 private:
  std::optional<PlainWindow> first_;
  std::optional<PlainWindow> second_;
};

TEST_P(X11WindowInFrontTest, IsSeenOnItsOwnDesktopOnly) {
  // What the window manager does with the first window it is given tells what it will do with all.
  const auto everywhere = make({.collectionBehavior = platform::CollectionBehavior::CanJoinAllSpaces});
  everywhere->setAlpha(1.0);
  everywhere->orderFront();
  ASSERT_TRUE(appears(*everywhere));
  settle(std::chrono::milliseconds(500));
  everywhere->orderOut();
  ASSERT_TRUE(isGone());

  const auto here = makeOn(0);
  const auto there = makeOn(1);
  for (int time = 0; time < 3; ++time) {
    EXPECT_TRUE(waitFor([&] { return probe(*here).isViewable() && !probe(*there).isViewable(); }));
    EXPECT_TRUE(isShownWhole());
    switchTo(1);
    EXPECT_TRUE(waitFor([&] { return probe(*there).isViewable() && !probe(*here).isViewable(); }));
    EXPECT_TRUE(isShownWhole());
    switchTo(0);
  }
  here->orderOut();
  EXPECT_TRUE(isGone());
}

INSTANTIATE_TEST_SUITE_P(OnSome, X11WindowInFrontTest,
                         ::testing::Values(WindowManagerKind::I3, WindowManagerKind::Bspwm),
                         ::testing::PrintToStringParamName());

}  // namespace
}  // namespace roomlattice::tests
