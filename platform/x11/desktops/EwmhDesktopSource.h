#pragma once

#include "platform/x11/connection/WindowManagerTraits.h"
#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/desktops/DesktopSource.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace roomlattice::platform::x11 {

/// Desktops by the properties and messages of EWMH.
class EwmhDesktopSource final : public DesktopSource {
 public:
  /// `changed` is called from the event loop, once for each batch of events that may have changed what is read.
  EwmhDesktopSource(X11Connection& connection, DesktopIdentity identity, std::function<void()> changed);

  const DesktopList* known() override;
  void activate(std::size_t index) override;
  /// Nothing happens where desktops are known by their names.
  void rename(std::size_t index, const std::string& name) override;

 private:
  void propertyChanged(xcb_window_t window, xcb_atom_t atom);
  void batchEnded();
  void readList();

  X11Connection& connection_;
  DesktopIdentity identity_;
  std::function<void()> changed_;
  // Kept, so that a switch is one question to the server however many desktops there are.
  DesktopList list_;
  bool listDirty_ = true;
  bool currentDirty_ = false;
  Registration propertyEvents_;
  Registration batches_;
};

}  // namespace roomlattice::platform::x11
