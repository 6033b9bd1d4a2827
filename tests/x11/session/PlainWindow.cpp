#include "tests/x11/session/PlainWindow.h"

#include "tests/linux/session/Wait.h"
#include "tests/x11/session/WindowProbe.h"

#include <stdexcept>

namespace roomlattice::tests {

using platform::x11::X11Connection;
using platform::x11::XcbPointer;

PlainWindow::PlainWindow(const QRect& frame, const QColor& color) : connection_(X11Connection::open()) {
  xcb_connection_t* raw = connection_->raw();
  window_ = xcb_generate_id(raw);
  const std::array<std::uint32_t, 2> values = {
      color.rgb() & 0xFFFFFF, XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE | XCB_EVENT_MASK_KEY_PRESS |
                                  XCB_EVENT_MASK_STRUCTURE_NOTIFY};
  const auto x = static_cast<std::int16_t>(frame.x());
  const auto y = static_cast<std::int16_t>(frame.y());
  const auto width = static_cast<std::uint16_t>(frame.width());
  const auto height = static_cast<std::uint16_t>(frame.height());
  xcb_create_window(raw, XCB_COPY_FROM_PARENT, window_, connection_->root(), x, y, width, height, 0,
                    XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK,
                    values.data());
  // ICCCM: position and size as the user wants them, and input as the window manager gives it.
  const std::array<std::uint32_t, 18> normalHints = {3};
  xcb_change_property(raw, XCB_PROP_MODE_REPLACE, window_, XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, 32,
                      normalHints.size(), normalHints.data());
  const std::array<std::uint32_t, 9> hints = {1, 1};
  xcb_change_property(raw, XCB_PROP_MODE_REPLACE, window_, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS, 32, hints.size(),
                      hints.data());
  xcb_map_window(raw, window_);
  xcb_flush(raw);
  if (!waitFor([this] { return WindowProbe(*connection_, window_).isViewable(); })) {
    throw std::runtime_error("the window does not appear");
  }
  connection_->sendToRoot(window_, connection_->ewmh()->_NET_ACTIVE_WINDOW, {2, XCB_CURRENT_TIME, 0, 0, 0});
  if (!waitFor([this] { return hasFocus(); })) {
    throw std::runtime_error("the window does not get the keyboard");
  }
}

PlainWindow::~PlainWindow() {
  xcb_destroy_window(connection_->raw(), window_);
  connection_->flush();
}

bool PlainWindow::hasFocus() {
  return focusedWindow(*connection_) == window_;
}

void PlainWindow::maximize() {
  const xcb_ewmh_connection_t& atoms = *connection_->ewmh();
  addStates(atoms._NET_WM_STATE_MAXIMIZED_HORZ, atoms._NET_WM_STATE_MAXIMIZED_VERT);
}

void PlainWindow::fillScreen() {
  addStates(connection_->ewmh()->_NET_WM_STATE_FULLSCREEN, XCB_ATOM_NONE);
}

void PlainWindow::addStates(xcb_atom_t first, xcb_atom_t second) {
  constexpr std::uint32_t addState = 1;
  constexpr std::uint32_t sourceIsApplication = 1;
  connection_->sendToRoot(window_, connection_->ewmh()->_NET_WM_STATE,
                          {addState, first, second, sourceIsApplication, 0});
}

int PlainWindow::clicks() {
  countInput();
  return clicks_;
}

int PlainWindow::releases() {
  countInput();
  return releases_;
}

int PlainWindow::keys() {
  connection_->waitForServer();
  countInput();
  return keys_;
}

void PlainWindow::countInput() {
  while (const XcbPointer<xcb_generic_event_t> event{xcb_poll_for_event(connection_->raw())}) {
    const int type = event->response_type & 0x7f;
    clicks_ += type == XCB_BUTTON_PRESS ? 1 : 0;
    releases_ += type == XCB_BUTTON_RELEASE ? 1 : 0;
    keys_ += type == XCB_KEY_PRESS ? 1 : 0;
  }
}

}  // namespace roomlattice::tests
