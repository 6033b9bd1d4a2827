#pragma once

#include "platform/x11/connection/X11Connection.h"

#include <QColor>
#include <QRect>
#include <memory>

namespace roomlattice::tests {

/// A window of another application, so to say: on a connection of its own, filled with one colour, counting the
/// clicks and keys it gets.
class PlainWindow {
 public:
  /// Waits until it is mapped and has the keyboard. Where there is a window manager, it adds its decoration.
  PlainWindow(const QRect& frame, const QColor& color);
  ~PlainWindow();
  PlainWindow(const PlainWindow&) = delete;
  PlainWindow& operator=(const PlainWindow&) = delete;

  xcb_window_t id() const { return window_; }
  bool hasFocus();

  /// Asks the window manager to show it as large as it can.
  void maximize();

  /// Asks the window manager to have it fill the screen, without a frame.
  void fillScreen();

  /// The presses of the first button so far.
  int clicks();

  /// The releases of any button so far.
  int releases();

  /// The keys pressed so far.
  int keys();

 private:
  void addStates(xcb_atom_t first, xcb_atom_t second);
  void countInput();

  std::unique_ptr<platform::x11::X11Connection> connection_;
  xcb_window_t window_ = XCB_WINDOW_NONE;
  int clicks_ = 0;
  int releases_ = 0;
  int keys_ = 0;
};

}  // namespace roomlattice::tests
