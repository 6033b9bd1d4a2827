#include "platform/x11/connection/X11Connection.h"
#include "tests/x11/session/Program.h"
#include "tests/x11/session/X11Session.h"

#include <array>
#include <cstring>
#include <gmock/gmock.h>

namespace roomlattice::tests {
namespace {

using platform::x11::X11Connection;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

/// A client that owns the selection by which the program claims the display, and nothing else.
class Claimant {
 public:
  Claimant() : window_(xcb_generate_id(connection_->raw())) {
    xcb_create_window(connection_->raw(), XCB_COPY_FROM_PARENT, window_, connection_->root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_set_selection_owner(connection_->raw(), window_, connection_->atom("_ROOMLATTICE_S0"), XCB_CURRENT_TIME);
    connection_->waitForServer();
  }

 private:
  std::unique_ptr<X11Connection> connection_ = X11Connection::open();
  xcb_window_t window_;
};

TEST(ProgramClaimTest, IsTakenFromAClientThatIsNoRoomlattice) {
  const X11Session session;
  const Claimant claimant;
  Program program;
  EXPECT_TRUE(program.isUp()) << program.process().errorOutput();
}

TEST(ProgramClaimTest, IsMissedWhenAnotherClientTakesIt) {
  const X11Session session;
  Program program;
  ASSERT_TRUE(program.isUp()) << program.process().errorOutput();
  const Claimant claimant;
  EXPECT_EQ(program.exitStatus(), 1);
  EXPECT_THAT(program.complaints(), ElementsAre(HasSubstr("taken over the X11 display")));
}

TEST(ProgramClaimTest, IsMissedWhenAnotherClientDestroysIt) {
  const X11Session session;
  Program program;
  ASSERT_TRUE(program.isUp()) << program.process().errorOutput();
  const auto connection = X11Connection::open();
  xcb_destroy_window(connection->raw(), connection->selectionOwner(connection->atom("_ROOMLATTICE_S0")));
  connection->waitForServer();
  EXPECT_EQ(program.exitStatus(), 1);
  EXPECT_THAT(program.complaints(), ElementsAre(HasSubstr("taken over the X11 display")));
}

TEST(ProgramClaimTest, IsNotMissedWhenAnotherClientOnlySaysSo) {
  X11Session session;
  Program program;
  ASSERT_TRUE(program.isUp()) << program.process().errorOutput();
  const auto connection = X11Connection::open();
  const xcb_atom_t claim = connection->atom("_ROOMLATTICE_S0");
  const xcb_window_t owner = connection->selectionOwner(claim);
  xcb_selection_clear_event_t clear{};
  clear.response_type = XCB_SELECTION_CLEAR;
  clear.owner = owner;
  clear.selection = claim;
  xcb_destroy_notify_event_t destroy{};
  destroy.response_type = XCB_DESTROY_NOTIFY;
  destroy.event = owner;
  destroy.window = owner;
  std::array<char, 32> bytes{};
  std::memcpy(bytes.data(), &clear, sizeof clear);
  xcb_send_event(connection->raw(), 0, owner, XCB_EVENT_MASK_NO_EVENT, bytes.data());
  std::memcpy(bytes.data(), &destroy, sizeof destroy);
  xcb_send_event(connection->raw(), 0, owner, XCB_EVENT_MASK_NO_EVENT, bytes.data());
  connection->waitForServer();
  session.setDesktopCount(6);
  EXPECT_TRUE(program.knowsDesktop("desktop-6"));
  EXPECT_THAT(program.complaints(), ElementsAre());
}

}  // namespace
}  // namespace roomlattice::tests
