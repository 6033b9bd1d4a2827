#include "tests/x11/session/ProgramWindows.h"

#include "platform/x11/connection/NativeWindow.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace roomlattice::tests {
namespace {

using platform::x11::X11Connection;
using platform::x11::XcbPointer;

// What a window manager puts around a client is not deeper.
constexpr int deepestLevel = 4;

void collectWindows(X11Connection& connection, xcb_window_t parent, int level, std::vector<xcb_window_t>& windows) {
  const XcbPointer<xcb_query_tree_reply_t> tree(
      xcb_query_tree_reply(connection.raw(), xcb_query_tree(connection.raw(), parent), nullptr));
  if (tree == nullptr) {
    return;
  }
  const xcb_window_t* children = xcb_query_tree_children(tree.get());
  for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
    windows.push_back(children[i]);
    if (level < deepestLevel) {
      collectWindows(connection, children[i], level + 1, windows);
    }
  }
}

}  // namespace

std::vector<xcb_window_t> ProgramWindows::all() const {
  std::vector<xcb_window_t> windows;
  collectWindows(connection_, connection_.root(), 1, windows);
  std::erase_if(windows, [this](xcb_window_t window) {
    return WindowProbe(connection_, window).number("_NET_WM_PID") != static_cast<std::uint32_t>(process_);
  });
  return windows;
}

std::optional<WindowProbe> ProgramWindows::statusItem() const {
  return viewable("DOCK");
}

std::vector<WindowProbe> ProgramWindows::labels() const {
  std::vector<WindowProbe> labels = ofType("NOTIFICATION");
  std::erase_if(labels, [](const WindowProbe& label) { return label.desktop() == platform::x11::allDesktops; });
  return labels;
}

std::vector<WindowProbe> ProgramWindows::labelsOn(std::uint32_t desktop) const {
  std::vector<WindowProbe> labels = ofType("NOTIFICATION");
  std::erase_if(labels, [desktop](const WindowProbe& label) { return label.desktop() != desktop; });
  return labels;
}

std::vector<WindowProbe> ProgramWindows::overlaysEverywhere() const {
  return labelsOn(platform::x11::allDesktops);
}

std::optional<WindowProbe> ProgramWindows::popup() const {
  for (const xcb_window_t window : all()) {
    const WindowProbe probe(connection_, window);
    if (probe.isOverrideRedirect() && probe.isViewable()) {
      return probe;
    }
  }
  return std::nullopt;
}

std::optional<WindowProbe> ProgramWindows::preferences() const {
  for (const WindowProbe& window : ofType("NORMAL")) {
    if (!window.isOverrideRedirect() && window.isViewable()) {
      return window;
    }
  }
  return std::nullopt;
}

std::optional<WindowProbe> ProgramWindows::viewable(const std::string& type) const {
  const std::vector<WindowProbe> windows = ofType(type);
  const auto found = std::ranges::find_if(windows, &WindowProbe::isViewable);
  return found == windows.end() ? std::nullopt : std::optional(*found);
}

std::vector<WindowProbe> ProgramWindows::ofType(const std::string& type) const {
  std::vector<WindowProbe> windows;
  for (const xcb_window_t window : all()) {
    const WindowProbe probe(connection_, window);
    const std::vector<std::string> types = probe.types();
    if (std::ranges::find(types, "_NET_WM_WINDOW_TYPE_" + type) != types.end()) {
      windows.push_back(probe);
    }
  }
  return windows;
}

double opacityOf(const WindowProbe& window) {
  constexpr double opaque = std::numeric_limits<std::uint32_t>::max();
  return window.number("_NET_WM_WINDOW_OPACITY").value_or(std::numeric_limits<std::uint32_t>::max()) / opaque;
}

}  // namespace roomlattice::tests
