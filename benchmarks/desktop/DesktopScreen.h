#pragma once

#include "platform/x11/connection/X11Connection.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace roomlattice::benchmarks {

using Clock = std::chrono::steady_clock;

/// The screen as any other client sees it.
class DesktopScreen {
 public:
  /// Of $DISPLAY. Stops the program where there is none.
  DesktopScreen();

  platform::x11::X11Connection& connection() { return *connection_; }

  std::uint32_t desktopCount() { return rootNumber(connection_->ewmh()->_NET_NUMBER_OF_DESKTOPS); }
  std::uint32_t currentDesktop() { return rootNumber(connection_->ewmh()->_NET_CURRENT_DESKTOP); }

  /// Asks the window manager for it, and does not wait.
  void switchTo(std::uint32_t desktop);

  /// Delivers events until `done`, but not beyond `limit`; false then.
  bool waitUntil(std::chrono::milliseconds limit, const std::function<bool()>& done);

  /// Until the desktop in front has not changed for so long.
  void waitForRest(std::chrono::milliseconds rest);

  /// The first managed window of that type, such as "DOCK" (EWMH).
  std::optional<xcb_window_t> managedWindow(const std::string& type);

  /// Whether there is a managed window of the type "NOTIFICATION" on all desktops, as there is during a tour.
  bool hasOverlayEverywhere();

  std::vector<std::uint32_t> managedWindows();

  /// The bytes of the pixmaps that the client of a window keeps in the server (X-Resource).
  std::uint64_t pixmapBytes(xcb_window_t window);

 private:
  bool isOfType(xcb_window_t window, const std::string& type);
  std::uint32_t rootNumber(xcb_atom_t property);

  std::unique_ptr<platform::x11::X11Connection> connection_;
};

}  // namespace roomlattice::benchmarks
