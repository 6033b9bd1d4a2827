#pragma once

#include "platform/WindowServer.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice::platform::x11 {

/// Far more desktops than anybody has; what a window manager names beyond is garbage.
inline constexpr std::size_t maximumDesktops = 1000;

/// A desktop as the rest of the program knows it. Both identify it: neither is empty or 0, and both stay the same over
/// restarts of the program.
struct Desktop {
  SpaceID id = 0;
  std::string uuid;

  bool operator==(const Desktop&) const = default;
};

struct DesktopList {
  std::vector<Desktop> desktops;  // in the window manager's order
  std::optional<std::size_t> current;
  /// As the window manager calls the desktops, one for each, empty where it does not. None at all while unknown.
  std::vector<std::string> names = {};

  bool operator==(const DesktopList&) const = default;
};

/// Where the desktops of a screen are known and switched.
class DesktopSource {
 public:
  virtual ~DesktopSource() = default;

  /// The desktops as far as known now; null while they are unknown. Valid until the next call.
  virtual const DesktopList* known() = 0;

  /// A copy of them.
  std::optional<DesktopList> read() {
    const DesktopList* list = known();
    return list == nullptr ? std::nullopt : std::optional(*list);
  }

  /// Asks for a switch to the desktop at `index` of the list last read; it comes later, or not at all.
  virtual void activate(std::size_t index) = 0;

  /// Asks for another name of the desktop at `index` of the list last read. It comes later, or not at all.
  virtual void rename(std::size_t index, const std::string& name) = 0;
};

}  // namespace roomlattice::platform::x11
