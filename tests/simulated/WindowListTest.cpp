#include "platform/simulated/WindowList.h"

#include "tests/support/SimulatedFixture.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::Window;
using platform::WindowLevel;
using platform::WindowNumber;

class WindowListTest : public SimulatedFixture {
 protected:
  std::unique_ptr<Window> make(WindowLevel level = WindowLevel::Floating) {
    auto window = platform().userInterface().createOverlayWindow({.level = level, .alpha = 1.0});
    window->orderFront();
    return window;
  }

  static std::vector<WindowNumber> numbers(const std::vector<platform::simulated::SimulatedWindow*>& windows) {
    std::vector<WindowNumber> numbers;
    std::ranges::transform(windows, std::back_inserter(numbers), &Window::number);
    return numbers;
  }
};

TEST_F(WindowListTest, StandsByLevelAndThenByOrderingFront) {
  const auto first = make();
  const auto overlay = make(WindowLevel::StatusWindow);
  const auto second = make();
  first->orderFront();
  EXPECT_EQ(numbers(desktop.windows().overlays()),
            (std::vector<WindowNumber>{second->number(), first->number(), overlay->number()}));
}

TEST_F(WindowListTest, GivesEveryWindowANumberOfItsOwn) {
  auto first = make();
  const WindowNumber number = first->number();
  first.reset();
  const auto second = make();
  EXPECT_NE(second->number(), number);
  EXPECT_EQ(desktop.windows().find(number), nullptr);
}

}  // namespace
}  // namespace roomlattice::tests
