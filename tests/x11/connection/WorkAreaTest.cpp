#include "platform/x11/connection/WorkArea.h"

#include "tests/x11/session/QtApplication.h"
#include "tests/x11/session/X11Session.h"

#include <array>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::x11::WorkArea;
using platform::x11::X11Connection;

constexpr QRect screen(0, 0, 1280, 800);

class WorkAreaTest : public ::testing::TestWithParam<std::array<std::uint32_t, 4>> {
 protected:
  void write(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, const auto& numbers) {
    xcb_change_property(connection_->raw(), XCB_PROP_MODE_REPLACE, window, property, type, 32,
                        static_cast<std::uint32_t>(numbers.size()), numbers.data());
  }

  X11Session session_{{.windowManager = std::nullopt}};
  std::unique_ptr<X11Connection> connection_ = X11Connection::open();
};

TEST_P(WorkAreaTest, IsTheScreenWhereNumbersMakeNoSense) {
  const xcb_ewmh_connection_t& atoms = *connection_->ewmh();
  const xcb_window_t window = xcb_generate_id(connection_->raw());
  xcb_create_window(connection_->raw(), XCB_COPY_FROM_PARENT, window, connection_->root(), 0, 0, 1, 1, 0,
                    XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
  write(connection_->root(), atoms._NET_WORKAREA, XCB_ATOM_CARDINAL, GetParam());
  write(window, atoms._NET_WM_STRUT, XCB_ATOM_CARDINAL, GetParam());
  write(connection_->root(), atoms._NET_CLIENT_LIST, XCB_ATOM_WINDOW, std::array{window});
  const WorkArea area(*connection_);
  EXPECT_EQ(area.freePartOf(screen), screen);
  EXPECT_EQ(area.leftByOthersThan(XCB_WINDOW_NONE, screen), screen);
}

INSTANTIATE_TEST_SUITE_P(OfHugeNumbers, WorkAreaTest,
                         ::testing::Values(std::array{0x7fffffffU, 0x7fffffffU, 0x7fffffffU, 0x7fffffffU},
                                           std::array{0x80000000U, 0x80000000U, 0x80000000U, 0x80000000U},
                                           std::array{0xffffffffU, 0x80000000U, 0x7fffffffU, 0x80000001U},
                                           std::array{0U, 0xffffffffU, 0x7fffffffU, 0x7fffffffU}));

}  // namespace
}  // namespace roomlattice::tests
