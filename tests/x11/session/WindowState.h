#pragma once

#include "platform/x11/connection/X11Connection.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace roomlattice::tests {

/// What the server, the window's own program and the window manager tell of a window.
struct WindowState {
  xcb_window_t id = XCB_WINDOW_NONE;
  /// _NET_WM_PID.
  std::optional<std::uint32_t> process;
  /// The atoms of _NET_WM_WINDOW_TYPE.
  std::vector<std::uint32_t> types;
  /// _NET_WM_DESKTOP.
  std::optional<std::uint32_t> desktop;
  /// What a compositor makes of it, 0 to 1: _NET_WM_WINDOW_OPACITY.
  double opacity = 1.0;
  /// Whether it and all that surround it are mapped.
  bool isViewable = false;
  /// Whether window managers are to leave it alone, as they do with menus.
  bool isOverrideRedirect = false;
};

/// Of those windows, in one round trip to the server: who looks again and again on a busy machine misses little.
std::vector<WindowState> statesOf(platform::x11::X11Connection& connection, const std::vector<xcb_window_t>& windows);

/// All windows of the screen, down to the clients within what a window manager puts around them. However many there
/// are, the server is waited for a handful of times: who looks again and again on a busy machine misses little.
std::vector<WindowState> windowsOfScreen(platform::x11::X11Connection& connection);

}  // namespace roomlattice::tests
