#include "labels/SignWindows.h"

#include "labels/SignView.h"

#include <optional>
#include <utility>

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

}  // namespace

SignWindows::WindowPointer SignWindows::find(platform::SpaceID desktop) const {
  const auto found = windows_.find(desktop);
  return found == windows_.end() ? nullptr : found->second.window;
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
  windows_[desktop.spaceID] = {made, name};
  return *made;
}

void SignWindows::ensure(const SpaceInfo& desktop) {
  const auto found = windows_.find(desktop.spaceID);
  if (found == windows_.end()) {
    make(desktop, 0.0);
    return;
  }
  Label& label = found->second;
  if (const std::string name = manager_.displayName(desktop); label.name != name) {
    label.name.reset();
    setText(*label.window, name);
  }
}

void SignWindows::spacesChanged() {
  std::erase_if(windows_, [this](const auto& entry) {
    const bool stale = !isOfRegularSpace(entry.first);
    if (stale) {
      entry.second.window->orderOut();
    }
    return stale;
  });
  if (windows_.empty()) {
    // There need be no screen.
    return;
  }
  const SignPlacement placement = this->placement();
  const platform::Rect placedBy = placement.frameOf("");
  const bool isPlaced = placedBy_ == placedBy;
  placedBy_ = placedBy;
  for (const SpaceInfo& space : manager_.spaces()) {
    const auto found = space.isRegular() ? windows_.find(space.spaceID) : windows_.end();
    if (found != windows_.end()) {
      Label& label = found->second;
      // Most are as they were.
      if (std::string name = manager_.displayName(space); !isPlaced || label.name != name) {
        setText(*label.window, name);
        moveToFrame(*label.window, placement.frameOf(name));
        label.name = std::move(name);
      }
    }
  }
}

void SignWindows::place() {
  std::optional<SignPlacement> placement;
  for (const auto& [desktop, label] : windows_) {
    if (const SpaceInfo* space = manager_.firstSpace(desktop)) {
      if (!placement) {
        placement.emplace(this->placement());
      }
      moveToFrame(*label.window, placement->frameOf(manager_.displayName(*space)));
    }
  }
}

bool SignWindows::isOfRegularSpace(platform::SpaceID desktop) const {
  const SpaceInfo* first = manager_.firstSpace(desktop);
  if (first == nullptr || first->isRegular()) {
    return first != nullptr;
  }
  // Window servers give no identifier twice, but nothing holds them to that.
  return positionOf(desktop, regularSpaces(manager_.spaces())).has_value();
}

SignPlacement SignWindows::placement() const {
  return {platform_.userInterface(), SignView::labelFont(preferences_)};
}

void SignWindows::pinWindow(const platform::Window& window, platform::SpaceID desktop) {
  platform_.windowServer().addWindowToSpace(window.number(), desktop);
}

}  // namespace roomlattice
