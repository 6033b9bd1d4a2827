#pragma once

#include "platform/x11/connection/X11Connection.h"

#include <QPoint>
#include <QRect>
#include <QSize>
#include <map>
#include <set>
#include <string>

namespace roomlattice::tests {

/// What the clients of a desktop may leave behind there when they have gone.
struct DesktopState {
  static DesktopState of(platform::x11::X11Connection& connection);

  /// Asks for all of it that can be asked for; the window manager takes its time.
  void putBackOn(platform::x11::X11Connection& connection) const;

  bool operator==(const DesktopState&) const = default;

  /// Of the root window, by their names.
  std::map<std::string, std::string> properties;
  QSize screen;
  QRect workArea;
  QPoint pointer;
  /// The windows that can be seen.
  std::set<xcb_window_t> shown;
};

}  // namespace roomlattice::tests
