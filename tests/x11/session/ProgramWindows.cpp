#include "tests/x11/session/ProgramWindows.h"

#include "platform/x11/connection/NativeWindow.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace roomlattice::tests {
namespace {

using platform::x11::allDesktops;

}  // namespace

std::vector<xcb_window_t> ProgramWindows::all() const {
  std::vector<xcb_window_t> windows;
  for (const WindowProbe& window : those([](const WindowState& /*window*/) { return true; })) {
    windows.push_back(window.id());
  }
  return windows;
}

std::optional<WindowProbe> ProgramWindows::statusItem() const {
  return viewable("DOCK");
}

std::vector<WindowProbe> ProgramWindows::labels() const {
  return those(
      [this](const WindowState& window) { return hasType(window, "NOTIFICATION") && window.desktop != allDesktops; });
}

std::vector<WindowProbe> ProgramWindows::labelsOn(std::uint32_t desktop) const {
  return those([&](const WindowState& window) { return hasType(window, "NOTIFICATION") && window.desktop == desktop; });
}

std::vector<WindowProbe> ProgramWindows::overlaysEverywhere() const {
  return labelsOn(allDesktops);
}

std::vector<WindowProbe> ProgramWindows::seen(double opacity) const {
  return those([&](const WindowState& window) { return isSeen(window, opacity); });
}

std::vector<WindowProbe> ProgramWindows::seen(double opacity, const std::vector<xcb_window_t>& among) const {
  std::vector<WindowProbe> windows;
  for (const WindowState& window : statesOf(connection_, among)) {
    if (isSeen(window, opacity)) {
      windows.emplace_back(connection_, window.id);
    }
  }
  return windows;
}

std::optional<WindowProbe> ProgramWindows::popup() const {
  return first([this](const WindowState& window) {
    // A tool tip comes by itself where a busy machine lets the pointer rest on the item before its button is pressed.
    return window.isOverrideRedirect && window.isViewable && !hasType(window, "TOOLTIP");
  });
}

std::optional<WindowProbe> ProgramWindows::preferences() const {
  return first([this](const WindowState& window) {
    return hasType(window, "NORMAL") && !window.isOverrideRedirect && window.isViewable;
  });
}

std::optional<WindowProbe> ProgramWindows::viewable(const std::string& type) const {
  return first([&](const WindowState& window) { return hasType(window, type) && window.isViewable; });
}

bool ProgramWindows::hasType(const WindowState& window, const std::string& type) const {
  return std::ranges::count(window.types, connection_.atom("_NET_WM_WINDOW_TYPE_" + type)) > 0;
}

bool ProgramWindows::isSeen(const WindowState& window, double opacity) const {
  return hasType(window, "NOTIFICATION") && window.isViewable && window.opacity >= opacity;
}

std::vector<WindowProbe> ProgramWindows::those(const std::function<bool(const WindowState&)>& condition) const {
  std::vector<WindowProbe> windows;
  for (const WindowState& window : windowsOfScreen(connection_)) {
    if (window.process == static_cast<std::uint32_t>(process_) && condition(window)) {
      windows.emplace_back(connection_, window.id);
    }
  }
  return windows;
}

std::optional<WindowProbe> ProgramWindows::first(const std::function<bool(const WindowState&)>& condition) const {
  const std::vector<WindowProbe> windows = those(condition);
  return windows.empty() ? std::nullopt : std::optional(windows.front());
}

double opacityOf(const WindowProbe& window) {
  constexpr std::uint32_t opaque = std::numeric_limits<std::uint32_t>::max();
  return static_cast<double>(window.number("_NET_WM_WINDOW_OPACITY").value_or(opaque)) / opaque;
}

}  // namespace roomlattice::tests
