#pragma once

#include "platform/x11/connection/X11Connection.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>
#include <xcb/xinput.h>

namespace roomlattice::platform::x11 {

/// Version 2 of the X input extension on the program's own connection (XInput 2.4).
class XInput {
 public:
  using EventHandler = std::function<void(const xcb_ge_generic_event_t& event)>;

  explicit XInput(X11Connection& connection);

  /// Whether the server has the extension in version 2 at all, and gestures in it (2.4).
  bool isAvailable() const { return minorVersion_.has_value(); }
  bool hasGestures() const { return minorVersion_ >= 4U; }

  /// Selects the events of `types` on the root window for a device, in place of those selected before.
  void select(xcb_input_device_id_t device, const std::vector<unsigned>& types);

  /// Calls `handler` for each event of the extension, from the event loop.
  Registration observe(EventHandler handler);

  /// The slave devices that make gestures. Waits for the server.
  std::vector<xcb_input_device_id_t> gestureDevices();

 private:
  X11Connection& connection_;
  std::uint8_t opcode_ = 0;
  std::optional<unsigned> minorVersion_;
};

}  // namespace roomlattice::platform::x11
