#include "platform/simulated/SimulatedDesktop.h"

#include "platform/simulated/SimulatedWindow.h"
#include "tests/support/SimulatedFixture.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::Window;
using platform::WindowNumber;

class SimulatedDesktopWindowsTest : public SimulatedFixture {
 protected:
  std::unique_ptr<Window> make() {
    auto window = platform().userInterface().createOverlayWindow({.alpha = 1.0});
    window->orderFront();
    return window;
  }

  static std::vector<WindowNumber> numbers(const std::vector<platform::simulated::SimulatedWindow*>& windows) {
    std::vector<WindowNumber> numbers;
    std::ranges::transform(windows, std::back_inserter(numbers), &Window::number);
    return numbers;
  }
};

TEST_F(SimulatedDesktopWindowsTest, KnowsTheWindowsOfADesktopAndWhichCanBeSeen) {
  const auto shown = make();
  const auto transparent = make();
  transparent->setAlpha(0.0);
  const auto out = make();
  out->orderOut();
  desktop.switchTo(desktop.desktopAt(1));
  const auto elsewhere = make();
  EXPECT_EQ(numbers(desktop.windowsOn(desktop.desktopAt(0))),
            (std::vector<WindowNumber>{shown->number(), transparent->number()}));
  EXPECT_EQ(numbers(desktop.visibleWindowsOn(desktop.desktopAt(0))), std::vector<WindowNumber>{shown->number()});
  EXPECT_EQ(numbers(desktop.windowsOn(desktop.desktopAt(1))), std::vector<WindowNumber>{elsewhere->number()});
}

TEST_F(SimulatedDesktopWindowsTest, SeesAWindowOnceItsOpacityRises) {
  const auto window = make();
  window->setAlpha(0.0);
  window->animateAlpha(1.0, 1s);
  EXPECT_TRUE(desktop.visibleWindowsOn(desktop.activeSpace()).empty());
  desktop.advance(1ms);
  EXPECT_EQ(desktop.visibleWindowsOn(desktop.activeSpace()).size(), 1U);
}

TEST_F(SimulatedDesktopWindowsTest, LeavesTheWindowsOfARemovedDesktopOnNone) {
  const auto window = make();
  const auto removed = desktop.desktopAt(0);
  desktop.removeDesktop(removed);
  EXPECT_TRUE(desktop.windowsOn(removed).empty());
  EXPECT_TRUE(desktop.windows().find(window->number())->spaces().empty());
}

TEST_F(SimulatedDesktopWindowsTest, LeavesTheWindowsOfARemovedDisplayOnNone) {
  const auto display = desktop.addDisplay("Display 2");
  desktop.giveKeyboardTo(display);
  const auto window = make();
  EXPECT_EQ(desktop.windows().find(window->number())->spaces().size(), 1U);
  desktop.removeDisplay(display);
  EXPECT_TRUE(desktop.windows().find(window->number())->spaces().empty());
}

}  // namespace
}  // namespace roomlattice::tests
