#include "platform/x11/connection/InstanceLock.h"

#include "platform/x11/connection/Properties.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

// Instance and class, as ICCCM has them.
constexpr std::string_view ownClass("roomlattice\0Roomlattice\0", 24);

bool isRoomlattice(X11Connection& connection, xcb_window_t window) {
  return window != XCB_WINDOW_NONE && readBytes(connection, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING) == ownClass;
}

}  // namespace

std::unique_ptr<InstanceLock> InstanceLock::acquire(X11Connection& connection) {
  const xcb_atom_t selection = connection.atom("_ROOMLATTICE_S" + std::to_string(connection.screenNumber()));
  if (isRoomlattice(connection, connection.selectionOwner(selection))) {
    return nullptr;
  }
  std::unique_ptr<InstanceLock> lock(new InstanceLock(connection, selection));
  return connection.selectionOwner(selection) == lock->owner_ ? std::move(lock) : nullptr;
}

InstanceLock::InstanceLock(X11Connection& connection, xcb_atom_t selection)
    : connection_(connection), selection_(selection), owner_(xcb_generate_id(connection.raw())) {
  clearEvents_ = connection.observe(XCB_SELECTION_CLEAR, [this](const xcb_generic_event_t&) { isInDoubt_ = true; });
  destroyEvents_ = connection.observe<xcb_destroy_notify_event_t>(
      [this](const auto& event) { isInDoubt_ = isInDoubt_ || event.window == owner_; });
  batches_ = connection.observeBatches([this] { batchEnded(); });
  constexpr std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
  xcb_connection_t* raw = connection.raw();
  xcb_create_window(raw, XCB_COPY_FROM_PARENT, owner_, connection.root(), -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                    XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
  // Whoever sees the claim sees whose it is.
  xcb_change_property(raw, XCB_PROP_MODE_REPLACE, owner_, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8, ownClass.size(),
                      ownClass.data());
  xcb_set_selection_owner(raw, owner_, selection, XCB_CURRENT_TIME);
}

InstanceLock::~InstanceLock() {
  xcb_destroy_window(connection_.raw(), owner_);
  connection_.flush();
}

/// Any client can send such events: the server knows.
void InstanceLock::batchEnded() {
  const bool isLost = std::exchange(isInDoubt_, false) && connection_.selectionOwner(selection_) != owner_;
  if (isLost && !connection_.isLost()) {
    lossListeners_.notify();
  }
}

}  // namespace roomlattice::platform::x11
