#include "platform/x11/connection/PictureFormats.h"

#include "tests/x11/session/X11Session.h"

#include <gtest/gtest.h>
#include <memory>

namespace roomlattice::tests {
namespace {

using platform::x11::PictureFormats;
using platform::x11::X11Connection;

class PictureFormatsTest : public ::testing::Test {
 protected:
  xcb_visualid_t rootVisual() const {
    return xcb_setup_roots_iterator(xcb_get_setup(connection_->raw())).data->root_visual;
  }

  X11Session session_{{.windowManager = std::nullopt}};
  std::unique_ptr<X11Connection> connection_ = X11Connection::open();
};

TEST_F(PictureFormatsTest, AreKnownForVisualsThatThereAre) {
  PictureFormats formats(*connection_);
  EXPECT_NE(formats.of(rootVisual()), 0U);
  EXPECT_NE(formats.ofMasks(), 0U);
  EXPECT_EQ(formats.of(0), 0U);
}

TEST_F(PictureFormatsTest, AreAskedForOnce) {
  PictureFormats formats(*connection_);
  formats.of(rootVisual());
  // Each request has the number after the one before it.
  const unsigned before = xcb_no_operation(connection_->raw()).sequence;
  formats.of(rootVisual());
  formats.ofMasks();
  EXPECT_EQ(xcb_no_operation(connection_->raw()).sequence, before + 1);
}

}  // namespace
}  // namespace roomlattice::tests
