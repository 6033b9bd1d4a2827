#include "platform/x11/connection/PanelWait.h"

#include "platform/x11/connection/Properties.h"
#include "platform/x11/connection/WindowManagerWatch.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace roomlattice::platform::x11 {
namespace {

using namespace std::chrono_literals;

bool isDock(X11Connection& connection, xcb_window_t window) {
  const xcb_ewmh_connection_t& atoms = *connection.ewmh();
  const auto types = readNumbers(connection, window, atoms._NET_WM_WINDOW_TYPE, XCB_ATOM_ATOM);
  return types && std::ranges::find(*types, atoms._NET_WM_WINDOW_TYPE_DOCK) != types->end();
}

/// freedesktop.org, System Tray Protocol.
bool hasTray(X11Connection& connection) {
  const std::string selection = "_NET_SYSTEM_TRAY_S" + std::to_string(connection.screenNumber());
  return connection.selectionOwner(connection.atom(selection)) != XCB_WINDOW_NONE;
}

}  // namespace

bool hasPanel(X11Connection& connection) {
  const auto manager = findWindowManager(connection);
  if (hasTray(connection) || (manager && traitsOf(manager->name).hasPanel)) {
    return true;
  }
  const auto windows = readNumbers(connection, connection.root(), connection.ewmh()->_NET_CLIENT_LIST, XCB_ATOM_WINDOW);
  return windows && std::ranges::any_of(*windows, [&](xcb_window_t window) { return isDock(connection, window); });
}

PanelWait waitForPanel(X11Connection& connection, const linux::TerminationSignals& signals,
                       std::chrono::milliseconds limit) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (!hasPanel(connection)) {
    if (connection.isLost() || std::chrono::steady_clock::now() >= deadline) {
      return PanelWait::TimedOut;
    }
    if (signals.waitFor(100ms)) {
      return PanelWait::Terminated;
    }
  }
  return PanelWait::Found;
}

}  // namespace roomlattice::platform::x11
