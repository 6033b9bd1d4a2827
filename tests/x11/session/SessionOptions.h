#pragma once

#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace roomlattice::tests {

/// All but the first three have their ways with some windows; they are not among those that all tests run under. I3
/// makes and drops desktops itself, whatever number is asked for.
enum class WindowManagerKind { Openbox, Xfwm4, KWin, Fluxbox, I3, Metacity, Marco, Bspwm };

std::ostream& operator<<(std::ostream& stream, WindowManagerKind kind);

enum class ServerKind { Xvfb, XorgWithTouchpad };

/// The X server of choice cannot be started here.
class ServerNotStarted : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct SessionOptions {
  /// None leaves the screen without one.
  std::optional<WindowManagerKind> windowManager = WindowManagerKind::Openbox;
  int desktops = 4;
  ServerKind server = ServerKind::Xvfb;
  std::string screen = "1280x800x24";
  std::vector<std::string> serverArguments;
  /// The number of the display; otherwise the first that is free, which another session may get once this one's server
  /// has gone.
  std::optional<int> display;

  bool operator==(const SessionOptions&) const = default;
};

}  // namespace roomlattice::tests
