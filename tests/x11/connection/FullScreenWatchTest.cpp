#include "platform/x11/connection/FullScreenWatch.h"

#include "platform/x11/connection/Properties.h"
#include "tests/x11/session/QtApplication.h"
#include "tests/x11/session/X11Session.h"

#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::x11::FullScreenWatch;
using platform::x11::X11Connection;

/// A screen without a window manager, where the test says which window is the active one.
class FullScreenWatchTest : public ::testing::Test {
 protected:
  xcb_window_t makeWindow() {
    const xcb_window_t window = xcb_generate_id(other_->raw());
    xcb_create_window(other_->raw(), XCB_COPY_FROM_PARENT, window, other_->root(), 0, 0, 1280, 800, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    other_->waitForServer();
    return window;
  }

  void activate(xcb_window_t window) {
    write(other_->root(), other_->ewmh()->_NET_ACTIVE_WINDOW, XCB_ATOM_WINDOW, window);
  }

  void fillScreen(xcb_window_t window) {
    write(window, other_->ewmh()->_NET_WM_STATE, XCB_ATOM_ATOM, other_->ewmh()->_NET_WM_STATE_FULLSCREEN);
  }

  void write(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, std::uint32_t value) {
    xcb_change_property(other_->raw(), XCB_PROP_MODE_REPLACE, window, property, type, 32, 1, &value);
    other_->waitForServer();
  }

  /// What the watch's connection hears of a window.
  std::uint32_t heardOf(xcb_window_t window) {
    xcb_connection_t* raw = qt_.connection().raw();
    const auto attributes =
        platform::x11::replyTo(raw, xcb_get_window_attributes(raw, window), xcb_get_window_attributes_reply);
    return attributes == nullptr ? 0 : attributes->your_event_mask;
  }

  X11Session session_{{.windowManager = std::nullopt}};
  QtApplication qt_;
  std::unique_ptr<X11Connection> other_ = X11Connection::open();
  int changes_ = 0;
};

TEST_F(FullScreenWatchTest, KnowsFromTheStartWithoutTelling) {
  const xcb_window_t window = makeWindow();
  fillScreen(window);
  activate(window);
  const FullScreenWatch watch(qt_.connection(), [this] { ++changes_; });
  EXPECT_EQ(watch.area(), QRect(0, 0, 1280, 800));
  EXPECT_EQ(changes_, 0);
}

TEST_F(FullScreenWatchTest, TellsWhenTheActiveWindowFillsTheScreenAndWhenAnotherIsActive) {
  const xcb_window_t first = makeWindow();
  const xcb_window_t second = makeWindow();
  activate(first);
  const FullScreenWatch watch(qt_.connection(), [this] { ++changes_; });
  EXPECT_EQ(watch.area(), std::nullopt);
  fillScreen(first);
  EXPECT_TRUE(waitFor([&] { return watch.area() == QRect(0, 0, 1280, 800); }));
  activate(second);
  EXPECT_TRUE(waitFor([&] { return watch.area() == std::nullopt; }));
  EXPECT_EQ(changes_, 2);
}

TEST_F(FullScreenWatchTest, HearsNothingMoreOfAWindowThatIsNoLongerActive) {
  const xcb_window_t first = makeWindow();
  const xcb_window_t second = makeWindow();
  activate(first);
  const FullScreenWatch watch(qt_.connection(), [this] { ++changes_; });
  EXPECT_NE(heardOf(first), 0U);
  activate(second);
  EXPECT_TRUE(waitFor([&] { return heardOf(second) != 0; }));
  EXPECT_EQ(heardOf(first), 0U);
}

TEST_F(FullScreenWatchTest, LeavesWhatTheProgramHeardOfAWindowBefore) {
  const xcb_window_t first = makeWindow();
  constexpr std::uint32_t ownEvents = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_FOCUS_CHANGE;
  xcb_change_window_attributes(qt_.connection().raw(), first, XCB_CW_EVENT_MASK, &ownEvents);
  activate(first);
  const FullScreenWatch watch(qt_.connection(), [this] { ++changes_; });
  EXPECT_EQ(heardOf(first), ownEvents | XCB_EVENT_MASK_PROPERTY_CHANGE);
  const xcb_window_t second = makeWindow();
  activate(second);
  EXPECT_TRUE(waitFor([&] { return heardOf(second) != 0; }));
  EXPECT_EQ(heardOf(first), ownEvents);
}

TEST_F(FullScreenWatchTest, FollowsAlsoAfterAWindowThatHasGone) {
  const xcb_window_t first = makeWindow();
  activate(first);
  const FullScreenWatch watch(qt_.connection(), [this] { ++changes_; });
  const xcb_window_t second = makeWindow();
  fillScreen(second);
  xcb_destroy_window(other_->raw(), first);
  activate(second);
  EXPECT_TRUE(waitFor([&] { return watch.area() == QRect(0, 0, 1280, 800); }));
}

}  // namespace
}  // namespace roomlattice::tests
