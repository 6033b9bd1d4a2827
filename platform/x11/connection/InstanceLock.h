#pragma once

#include "platform/x11/connection/X11Connection.h"

#include <memory>

namespace roomlattice::platform::x11 {

/// Makes sure that one Roomlattice runs on a screen: the owner of the selection "_ROOMLATTICE_S<screen>", as ICCCM has
/// managers of a screen claim theirs. The server gives the claim up with the connection, however the process ends.
class InstanceLock {
 public:
  /// Nothing when another process has the claim.
  static std::unique_ptr<InstanceLock> acquire(X11Connection& connection);

  InstanceLock(const InstanceLock&) = delete;
  InstanceLock& operator=(const InstanceLock&) = delete;
  ~InstanceLock();

 private:
  explicit InstanceLock(X11Connection& connection);

  X11Connection& connection_;
  xcb_window_t owner_;
};

}  // namespace roomlattice::platform::x11
