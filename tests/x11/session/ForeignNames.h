#pragma once

#include "platform/x11/connection/X11Connection.h"
#include "tests/x11/session/X11Session.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace roomlattice::tests {

/// The names of desktops that the window manager of a session has, as another program reads and changes them.
class ForeignNames {
 public:
  using Texts = std::vector<std::string>;

  ForeignNames(X11Session& session, WindowManagerKind windowManager)
      : session_(session), windowManager_(windowManager) {}

  /// All in the root window's property, those of desktops that are gone included.
  Texts all();

  /// Waits until the first desktops have these names.
  bool become(const Texts& names);

  /// Renames the first desktops by what the window manager heeds, and waits until it has done so.
  bool set(const Texts& names);

  /// Writes the property itself.
  void setProperty(const std::string& bytes);
  void setProperty(const std::string& bytes, xcb_atom_t type);
  std::string property();

 private:
  X11Session& session_;
  WindowManagerKind windowManager_;
  std::unique_ptr<platform::x11::X11Connection> connection_ = platform::x11::X11Connection::open();
};

}  // namespace roomlattice::tests
