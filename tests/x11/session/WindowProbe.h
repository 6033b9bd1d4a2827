#pragma once

#include "platform/x11/connection/X11Connection.h"

#include <QRect>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice::tests {

/// Looks at an X window from outside, as other programs see it.
class WindowProbe {
 public:
  WindowProbe(platform::x11::X11Connection& connection, xcb_window_t window)
      : connection_(&connection), window_(window) {}

  xcb_window_t id() const { return window_; }

  /// In pixels of the root window.
  std::optional<QRect> geometry() const;

  /// Whether it and all that surround it are mapped.
  bool isViewable() const;

  /// Whether its bounding shape is empty, so that nothing of it is on the screen though it may be mapped.
  bool isCutToNothing() const;

  /// Whether window managers are to leave it alone, as they do with menus.
  bool isOverrideRedirect() const;

  std::vector<std::string> types() const;
  bool hasState(const std::string& name) const;
  std::optional<std::uint32_t> number(const std::string& property) const;
  std::optional<std::uint32_t> desktop() const { return number("_NET_WM_DESKTOP"); }

  /// Whether clicks pass through it and through all that a window manager has put around it.
  bool passesClicks() const;

 private:
  std::vector<std::string> atomNames(const std::string& property) const;

  platform::x11::X11Connection* connection_;
  xcb_window_t window_;
};

/// The window with the keyboard, or one of the protocol's special values.
xcb_window_t focusedWindow(platform::x11::X11Connection& connection);

}  // namespace roomlattice::tests
