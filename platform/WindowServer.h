#pragma once

#include "platform/Value.h"

#include <cstdint>

namespace roomlattice::platform {

/// The window server's identifier of a desktop.
using SpaceID = std::uint64_t;

/// The window server's identifier of a window.
using WindowNumber = std::int64_t;

/// The window server's account of desktops, and which desktops a window is on. A window server that cannot answer gives
/// a null value and 0; attachments that cannot be made are ignored.
class WindowServer {
 public:
  virtual ~WindowServer() = default;

  /// An array with one dictionary per display: "Display Identifier" (string) and "Spaces" (array of dictionaries),
  /// each space with "ManagedSpaceID" or "id64" (integer), "uuid" (string) and "type" (integer, 0 for a regular
  /// desktop). Displays and spaces stand in the window server's order. Callers check every type they read.
  virtual Value managedDisplaySpaces() = 0;

  /// The desktop in front on the display that has the keyboard.
  virtual SpaceID activeSpace() = 0;

  /// Puts a window on a desktop in addition to those it is on.
  virtual void addWindowToSpace(WindowNumber window, SpaceID space) = 0;

  /// Takes a window off a desktop.
  virtual void removeWindowFromSpace(WindowNumber window, SpaceID space) = 0;
};

}  // namespace roomlattice::platform
