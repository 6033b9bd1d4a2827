#include "platform/x11/connection/WindowManagerWatch.h"

#include "tests/x11/session/X11Session.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace roomlattice::tests {
namespace {

using platform::x11::WindowManagerWatch;
using platform::x11::X11Connection;

/// A screen without a window manager, and a client that may say that it is one.
class WindowManagerWatchTest : public ::testing::Test {
 protected:
  WindowManagerWatchTest() {
    session_.stopWindowManager();
    settle();
    registration_ = watch_.observe([this] { ++changes_; });
  }

  xcb_window_t makeWindow() {
    const xcb_window_t window = xcb_generate_id(client_->raw());
    xcb_create_window(client_->raw(), XCB_COPY_FROM_PARENT, window, client_->root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    return window;
  }

  void name(xcb_window_t on, xcb_window_t checkWindow) {
    xcb_change_property(client_->raw(), XCB_PROP_MODE_REPLACE, on, client_->ewmh()->_NET_SUPPORTING_WM_CHECK,
                        XCB_ATOM_WINDOW, 32, 1, &checkWindow);
  }

  /// Whatever the client has asked for is done, and heard of.
  void settle() {
    client_->waitForServer();
    connection_->waitForServer();
    connection_->deliverEvents();
  }

  X11Session session_;
  std::unique_ptr<X11Connection> client_ = X11Connection::open();
  std::unique_ptr<X11Connection> connection_ = X11Connection::open();
  WindowManagerWatch watch_{*connection_};
  int changes_ = 0;

 private:
  platform::Registration registration_;
};

TEST_F(WindowManagerWatchTest, FindsOneThatNamesItsWindowBeforeThatBearsTheProperty) {
  const xcb_window_t window = makeWindow();
  name(client_->root(), window);
  settle();
  EXPECT_FALSE(watch_.current());
  EXPECT_EQ(changes_, 0);
  name(window, window);
  settle();
  ASSERT_TRUE(watch_.current());
  EXPECT_EQ(watch_.current()->checkWindow, window);
  EXPECT_EQ(changes_, 1);
}

TEST_F(WindowManagerWatchTest, LosesOneWhoseWindowGoes) {
  const xcb_window_t window = makeWindow();
  name(window, window);
  name(client_->root(), window);
  settle();
  ASSERT_TRUE(watch_.current());
  xcb_destroy_window(client_->raw(), window);
  settle();
  EXPECT_FALSE(watch_.current());
  EXPECT_EQ(changes_, 2);
}

TEST_F(WindowManagerWatchTest, TakesTheNextOneForAnotherThoughItsWindowHasTheSameNumber) {
  const xcb_window_t window = makeWindow();
  for (const int expected : {1, 3}) {
    name(window, window);
    name(client_->root(), window);
    settle();
    EXPECT_EQ(changes_, expected);
    ASSERT_TRUE(watch_.current());
    xcb_destroy_window(client_->raw(), window);
    settle();
    EXPECT_FALSE(watch_.current());
    xcb_create_window(client_->raw(), XCB_COPY_FROM_PARENT, window, client_->root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
  }
}

TEST_F(WindowManagerWatchTest, KeepsHearingOfTheRootThatIsNamedByMistake) {
  name(client_->root(), client_->root());
  settle();
  const xcb_window_t window = makeWindow();
  name(window, window);
  name(client_->root(), window);
  settle();
  EXPECT_TRUE(watch_.current());
}

}  // namespace
}  // namespace roomlattice::tests
