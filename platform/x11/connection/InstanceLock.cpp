#include "platform/x11/connection/InstanceLock.h"

#include <string>

namespace roomlattice::platform::x11 {

std::unique_ptr<InstanceLock> InstanceLock::acquire(X11Connection& connection) {
  const xcb_atom_t selection = connection.atom("_ROOMLATTICE_S" + std::to_string(connection.screenNumber()));
  // Two that start at once must not both find the selection free.
  xcb_grab_server(connection.raw());
  std::unique_ptr<InstanceLock> lock;
  if (connection.selectionOwner(selection) == XCB_WINDOW_NONE) {
    lock.reset(new InstanceLock(connection));
    xcb_set_selection_owner(connection.raw(), lock->owner_, selection, XCB_CURRENT_TIME);
  }
  xcb_ungrab_server(connection.raw());
  connection.flush();
  return lock;
}

InstanceLock::InstanceLock(X11Connection& connection)
    : connection_(connection), owner_(xcb_generate_id(connection.raw())) {
  xcb_create_window(connection.raw(), XCB_COPY_FROM_PARENT, owner_, connection.root(), -1, -1, 1, 1, 0,
                    XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
}

InstanceLock::~InstanceLock() {
  xcb_destroy_window(connection_.raw(), owner_);
  connection_.flush();
}

}  // namespace roomlattice::platform::x11
