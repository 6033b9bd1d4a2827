#include "labels/SignWindows.h"

#include "labels/SignPlacement.h"
#include "labels/SignView.h"

#include <unordered_map>
#include <utility>
#include <vector>

namespace roomlattice {
namespace {

void setText(const platform::Window& window, const std::string& name) {
  if (auto* view = dynamic_cast<SignView*>(window.contentView())) {
    view->setText(name);
  }
}

void moveToFrame(platform::Window& window, const platform::Rect& frame) {
  window.setFrame(frame);
  if (platform::View* view = window.contentView()) {
    view->setFrame({{}, frame.size});
  }
}

using DesktopMap = std::unordered_map<platform::SpaceID, const SpaceInfo*>;

/// The first of each identifier.
DesktopMap byIdentifier(const std::vector<SpaceInfo>& desktops) {
  DesktopMap map;
  for (const SpaceInfo& desktop : desktops) {
    map.emplace(desktop.spaceID, &desktop);
  }
  return map;
}

}  // namespace

SignWindows::WindowPointer SignWindows::find(platform::SpaceID desktop) const {
  const auto found = windows_.find(desktop);
  return found == windows_.end() ? nullptr : found->second;
}

platform::Window& SignWindows::make(const SpaceInfo& desktop, double alpha) {
  const std::string name = manager_.displayName(desktop);
  const platform::Rect frame = signFrame(name);
  const WindowPointer made = platform_.userInterface().createOverlayWindow({.frame = frame,
                                                                            .level = platform::WindowLevel::Floating,
                                                                            .collectionBehavior = ordinaryBehavior,
                                                                            .alpha = alpha});
  auto view = std::make_unique<SignView>(platform_, preferences_, name);
  view->setFrame({{}, frame.size});
  made->setContentView(std::move(view));
  made->orderFront();
  pinWindow(*made, desktop.spaceID);
  windows_[desktop.spaceID] = made;
  return *made;
}

void SignWindows::ensure(const SpaceInfo& desktop) {
  if (const WindowPointer existing = find(desktop.spaceID)) {
    setText(*existing, manager_.displayName(desktop));
  } else {
    make(desktop, 0.0);
  }
}

void SignWindows::spacesChanged() {
  const std::vector<SpaceInfo> desktops = regularSpaces(manager_.spaces());
  const DesktopMap known = byIdentifier(desktops);
  std::erase_if(windows_, [&](const auto& entry) {
    const bool stale = !known.contains(entry.first);
    if (stale) {
      entry.second->orderOut();
    }
    return stale;
  });
  for (const SpaceInfo& desktop : desktops) {
    if (const WindowPointer window = find(desktop.spaceID)) {
      const std::string name = manager_.displayName(desktop);
      setText(*window, name);
      moveToFrame(*window, signFrame(name));
    }
  }
}

void SignWindows::place() {
  const DesktopMap desktops = byIdentifier(manager_.spaces());
  for (const auto& [desktop, window] : windows_) {
    if (const auto found = desktops.find(desktop); found != desktops.end()) {
      moveToFrame(*window, signFrame(manager_.displayName(*found->second)));
    }
  }
}

platform::Rect SignWindows::signFrame(const std::string& text) const {
  return roomlattice::signFrame(platform_.userInterface(), text, SignView::labelFont(preferences_));
}

void SignWindows::pinWindow(const platform::Window& window, platform::SpaceID desktop) {
  platform_.windowServer().addWindowToSpace(window.number(), desktop);
}

}  // namespace roomlattice
