#include "platform/x11/connection/PanelWait.h"

#include "tests/x11/session/X11Session.h"

#include <csignal>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::x11::hasPanel;
using platform::x11::X11Connection;

/// A desktop, and the program that may become its panel.
class PanelWaitTest : public ::testing::Test {
 protected:
  PanelWaitTest() {
    window_ = xcb_generate_id(panel_->raw());
    xcb_create_window(panel_->raw(), XCB_COPY_FROM_PARENT, window_, panel_->root(), 0, 0, 100, 20, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
  }

  X11Session session_;
  std::unique_ptr<X11Connection> panel_ = X11Connection::open();
  std::unique_ptr<X11Connection> waiting_ = X11Connection::open();
  xcb_window_t window_ = XCB_WINDOW_NONE;
};

TEST_F(PanelWaitTest, IsNotOverForAnyWindow) {
  xcb_map_window(panel_->raw(), window_);
  panel_->waitForServer();
  EXPECT_FALSE(hasPanel(*waiting_));
}

TEST_F(PanelWaitTest, IsOverWithATray) {
  xcb_set_selection_owner(panel_->raw(), window_, panel_->atom("_NET_SYSTEM_TRAY_S0"), XCB_CURRENT_TIME);
  panel_->waitForServer();
  EXPECT_TRUE(hasPanel(*waiting_));
}

TEST_F(PanelWaitTest, IsOverWithADock) {
  xcb_ewmh_set_wm_window_type(panel_->ewmh(), window_, 1, &panel_->ewmh()->_NET_WM_WINDOW_TYPE_DOCK);
  xcb_map_window(panel_->raw(), window_);
  panel_->flush();
  EXPECT_TRUE(waitFor([this] { return hasPanel(*waiting_); }));
}

TEST_F(PanelWaitTest, FindsNothingOnAServerThatHasGone) {
  session_.endServer(SIGKILL);
  EXPECT_FALSE(hasPanel(*waiting_));
}

}  // namespace
}  // namespace roomlattice::tests
