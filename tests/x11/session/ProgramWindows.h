#pragma once

#include "tests/x11/session/WindowProbe.h"
#include "tests/x11/session/WindowState.h"

#include <functional>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace roomlattice::tests {

/// The windows of a running program, found and told apart by what other X clients see of them.
class ProgramWindows {
 public:
  /// Of the process of that number. The connection must outlive this object.
  ProgramWindows(platform::x11::X11Connection& connection, pid_t process)
      : connection_(connection), process_(process) {}

  /// Every X window that bears the process's number, also those that are not shown.
  std::vector<xcb_window_t> all() const;

  /// The window of the type dock, when it is to be seen.
  std::optional<WindowProbe> statusItem() const;

  /// All labels, those included that are on no desktop because they are not shown.
  std::vector<WindowProbe> labels() const;

  /// The labels that the window manager has on that desktop, shown or not.
  std::vector<WindowProbe> labelsOn(std::uint32_t desktop) const;

  /// Overlay windows on all desktops at once: while the tour runs, one.
  std::vector<WindowProbe> overlaysEverywhere() const;

  /// The labels and overlays that are on the screen now, at that opacity at least where a compositor obeys it.
  std::vector<WindowProbe> seen(double opacity) const;

  /// Those among these windows of the program, in one look.
  std::vector<WindowProbe> seen(double opacity, const std::vector<xcb_window_t>& among) const;

  /// What has popped up, the menu or the choices of a pop-up button; not a tool tip.
  std::optional<WindowProbe> popup() const;

  /// The preferences window, when it is to be seen.
  std::optional<WindowProbe> preferences() const;

  /// The first that is to be seen of the windows of that type, such as "NOTIFICATION" (EWMH).
  std::optional<WindowProbe> viewable(const std::string& type) const;

 private:
  bool hasType(const WindowState& window, const std::string& type) const;
  bool isSeen(const WindowState& window, double opacity) const;
  std::vector<WindowProbe> those(const std::function<bool(const WindowState&)>& condition) const;
  std::optional<WindowProbe> first(const std::function<bool(const WindowState&)>& condition) const;

  platform::x11::X11Connection& connection_;
  pid_t process_;
};

/// What a compositor makes of a window, 0 to 1: its _NET_WM_WINDOW_OPACITY.
double opacityOf(const WindowProbe& window);

}  // namespace roomlattice::tests
