#include "platform/x11/windows/OverlayManagement.h"

#include "tests/x11/session/QtApplication.h"
#include "tests/x11/session/X11Session.h"

#include <QWidget>
#include <gtest/gtest.h>
#include <memory>

namespace roomlattice::tests {
namespace {

using platform::x11::OverlayManagement;
using platform::x11::WindowManagerWatch;
using platform::x11::X11Connection;

/// Nobody manages windows but the test, so to say.
class OverlayManagementTest : public ::testing::Test {
 protected:
  OverlayManagementTest() { overlay_.show(); }

  xcb_window_t overlay() const { return static_cast<xcb_window_t>(overlay_.winId()); }

  /// Tells that the window is managed.
  void list(xcb_window_t window) {
    xcb_change_property(connection_->raw(), XCB_PROP_MODE_REPLACE, connection_->root(),
                        connection_->ewmh()->_NET_CLIENT_LIST, XCB_ATOM_WINDOW, 32, 1, &window);
    connection_->flush();
  }

  /// Whether the answer is that one after `news` changes.
  bool comesToTell(bool answer, int news) {
    return waitFor([=, this] { return management_.mayWaitOnDesktops() == answer && news_ == news; });
  }

  X11Session session_{{.windowManager = std::nullopt}};
  QtApplication qt_;
  std::unique_ptr<X11Connection> connection_ = X11Connection::open();
  WindowManagerWatch windowManager_{*connection_};
  OverlayManagement management_{*connection_, windowManager_};
  QWidget overlay_;
  int news_ = 0;
  platform::Registration changes_ = management_.observe([this] { ++news_; });
};

TEST_F(OverlayManagementTest, LeavesNoneToAWindowManagerThatDoesNotTakeThem) {
  EXPECT_TRUE(management_.mayWaitOnDesktops());
  management_.check(overlay());
  EXPECT_TRUE(comesToTell(false, 1));
}

TEST_F(OverlayManagementTest, BelievesOneThatWasTooBusyTheNextTime) {
  management_.check(overlay());
  ASSERT_TRUE(comesToTell(false, 1));
  list(overlay());
  management_.check(overlay());
  EXPECT_TRUE(comesToTell(true, 2));
}

}  // namespace
}  // namespace roomlattice::tests
