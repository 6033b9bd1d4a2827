#include "platform/x11/windows/X11Window.h"

#include "platform/x11/connection/NativeWindow.h"
#include "tests/x11/windows/X11WindowFixture.h"

#include <xcb/res.h>

namespace roomlattice::tests {
namespace {

using platform::Window;
using platform::x11::replyTo;
using platform::x11::toolkitConnection;

/// What windows cost the X server, apart from what is seen.
class X11WindowCostTest : public X11WindowTest {
 protected:
  std::uint64_t pixmapBytes(const Window& window) {
    const auto cookie =
        xcb_res_query_client_pixmap_bytes(ui_.connection().raw(), static_cast<std::uint32_t>(window.number()));
    const auto reply = replyTo(ui_.connection().raw(), cookie, xcb_res_query_client_pixmap_bytes_reply);
    return reply == nullptr ? ~std::uint64_t{0} : reply->bytes;
  }
};

TEST_F(X11WindowCostTest, DoNotWakeTheToolkit) {
  const auto window = makeOn(0);
  ASSERT_TRUE(centerBecomes(Qt::red));
  xcb_connection_t* const toolkit = toolkitConnection();
  const auto cookie = xcb_get_window_attributes(toolkit, static_cast<std::uint32_t>(window->number()));
  const auto attributes = replyTo(toolkit, cookie, xcb_get_window_attributes_reply);
  ASSERT_NE(attributes, nullptr);
  EXPECT_EQ(attributes->your_event_mask, XCB_EVENT_MASK_NO_EVENT);
}

TEST_F(X11WindowCostTest, KeepNoPictureInTheServer) {
  const auto here = makeOn(0);
  const auto there = makeOn(1);
  ASSERT_TRUE(centerBecomes(Qt::red));
  switchTo(1);
  ASSERT_TRUE(centerBecomes(Qt::red));
  EXPECT_LT(pixmapBytes(*here), 10000U);
}

}  // namespace
}  // namespace roomlattice::tests
