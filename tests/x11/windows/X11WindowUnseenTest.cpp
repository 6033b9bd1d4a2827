#include "platform/x11/connection/Properties.h"
#include "platform/x11/windows/X11Window.h"
#include "tests/x11/windows/X11WindowFixture.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::Window;
using platform::x11::readNumbers;

class X11WindowUnseenTest : public X11WindowTest {
 protected:
  X11WindowUnseenTest() : X11WindowTest({}, std::chrono::milliseconds(50)) {}

  bool isManaged(const Window& window) {
    platform::x11::X11Connection& connection = ui_.connection();
    const auto managed =
        readNumbers(connection, connection.root(), connection.ewmh()->_NET_CLIENT_LIST, XCB_ATOM_WINDOW)
            .value_or(std::vector<std::uint32_t>());
    return std::ranges::count(managed, static_cast<std::uint32_t>(window.number())) > 0;
  }
};

TEST_F(X11WindowUnseenTest, LeavesTheWindowManagerUntilItIsToBeSeenAgain) {
  const auto window = makeOn(0);
  ASSERT_TRUE(waitFor([&] { return isManaged(*window); }));
  window->setAlpha(0.0);
  switchTo(1);
  EXPECT_TRUE(waitFor([&] { return !isManaged(*window); }));
  window->setAlpha(1.0);
  EXPECT_TRUE(waitFor([&] { return isManaged(*window); }));
  settle();
  EXPECT_TRUE(isManaged(*window));
}

TEST_F(X11WindowUnseenTest, StaysOnTheDesktopInFront) {
  const auto window = makeOn(0);
  ASSERT_TRUE(waitFor([&] { return isManaged(*window); }));
  window->setAlpha(0.0);
  settle();
  EXPECT_TRUE(isManaged(*window));
}

}  // namespace
}  // namespace roomlattice::tests
