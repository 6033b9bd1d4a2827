#include "labels/SignWindows.h"

#include "labels/SignView.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

namespace roomlattice {
namespace {

void setText(const platform::Window& window, const std::string& name) {
  if (auto* view = dynamic_cast<SignView*>(window.contentView())) {
    view->setText(name);
  }
}

/// Null for another view. Quicker than a cast that has to look for its way.
const SignView* asSign(const platform::View& view) {
  return typeid(view) == typeid(SignView) ? static_cast<const SignView*>(&view) : nullptr;
}

void moveToFrame(SignWindows::Label& label, const platform::Rect& frame) {
  label.window->setFrame(frame);
  if (platform::View* view = label.window->contentView()) {
    view->setFrame({{}, frame.size});
  }
  label.frame = label.window->frame();
}

}  // namespace

SignWindows::WindowPointer SignWindows::find(platform::SpaceID desktop) const {
  const auto found = windows_.find(desktop);
  return found == windows_.end() ? nullptr : found->second.window;
}

platform::Window& SignWindows::make(const SpaceInfo& desktop, double alpha) {
  const std::string name = manager_.displayName(desktop);
  const SignPlacement placement = this->placement();
  const platform::Rect frame = placement.frameOf(name);
  if (placedBy_ != placement.frameOf("")) {
    placedBy_.reset();
  }
  const WindowPointer made = platform_.userInterface().createOverlayWindow({.frame = frame,
                                                                            .level = platform::WindowLevel::Floating,
                                                                            .collectionBehavior = ordinaryBehavior,
                                                                            .alpha = alpha});
  auto view = std::make_unique<SignView>(platform_, preferences_, name);
  view->setFrame({{}, frame.size});
  made->setContentView(std::move(view));
  made->orderFront();
  pinWindow(*made, desktop.spaceID);
  windows_[desktop.spaceID] = {.window = made, .name = name, .frame = made->frame()};
  return *made;
}

void SignWindows::ensure(const SpaceInfo& desktop) {
  const auto found = windows_.find(desktop.spaceID);
  if (found == windows_.end()) {
    make(desktop, 0.0);
    return;
  }
  Label& label = found->second;
  const std::string name = manager_.displayName(desktop);
  setText(*label.window, name);
  if (label.name != name) {
    label.name.reset();
  }
}

void SignWindows::lookThrough() {
  for (auto entry = windows_.begin(); entry != windows_.end();) {
    auto& [desktop, label] = *entry;
    if (!isOfRegularSpace(desktop, label)) {
      label.window->orderOut();
      entry = windows_.erase(entry);
      continue;
    }
    if (!isAsMade(label)) {
      label.name.reset();
      namedAt_ = 0;
    }
    ++entry;
  }
}

void SignWindows::spacesChanged() {
  lookThrough();
  if (windows_.empty()) {
    // There need be no screen.
    return;
  }
  const SignPlacement placement = this->placement();
  const platform::Rect placedBy = placement.frameOf("");
  if (std::exchange(placedBy_, placedBy) != placedBy) {
    namedAt_ = 0;
    for (auto& [desktop, label] : windows_) {
      label.name.reset();
    }
  }
  const std::vector<SpaceTable::Row>& rows = manager_.table().rows();
  for (std::size_t index = 0; index < rows.size(); ++index) {
    // Most are as they were.
    if (rows[index].changedAt > namedAt_) {
      bringUpToDate(manager_.spaces()[index], placement);
    }
  }
  namedAt_ = manager_.table().now();
}

void SignWindows::bringUpToDate(const SpaceInfo& desktop, const SignPlacement& placement) {
  const auto found = desktop.isRegular() ? windows_.find(desktop.spaceID) : windows_.end();
  if (found != windows_.end()) {
    Label& label = found->second;
    if (std::string name = manager_.displayName(desktop); label.name != name) {
      setText(*label.window, name);
      moveToFrame(label, placement.frameOf(name));
      label.name = std::move(name);
    }
  }
}

void SignWindows::place() {
  std::optional<SignPlacement> placement;
  for (auto& [desktop, label] : windows_) {
    if (const SpaceInfo* space = manager_.firstSpace(desktop)) {
      if (!placement) {
        placement.emplace(this->placement());
      }
      moveToFrame(label, placement->frameOf(manager_.displayName(*space)));
    }
  }
  placedBy_.reset();
}

bool SignWindows::isOfRegularSpace(platform::SpaceID desktop, Label& label) const {
  const std::vector<SpaceInfo>& spaces = manager_.spaces();
  const auto isOf = [desktop](const SpaceInfo& space) { return space.isRegular() && space.spaceID == desktop; };
  // Most stand where they stood.
  if (label.place < spaces.size() && isOf(spaces[label.place])) {
    return true;
  }
  const SpaceInfo* first = manager_.firstSpace(desktop);
  if (first != nullptr && !first->isRegular()) {
    // Window servers give no identifier twice, but nothing holds them to that.
    const auto found = std::ranges::find_if(spaces, isOf);
    first = found == spaces.end() ? nullptr : &*found;
  }
  if (first != nullptr) {
    label.place = static_cast<std::size_t>(first - spaces.data());
  }
  return first != nullptr;
}

/// Others may have moved it since, or written on it.
bool SignWindows::isAsMade(const Label& label) {
  const platform::View* view = label.window->contentView();
  const SignView* sign = view != nullptr ? asSign(*view) : nullptr;
  return label.window->frame() == label.frame && (sign == nullptr || sign->text() == label.name);
}

SignPlacement SignWindows::placement() const {
  return {platform_.userInterface(), SignView::labelFont(preferences_)};
}

void SignWindows::pinWindow(const platform::Window& window, platform::SpaceID desktop) {
  platform_.windowServer().addWindowToSpace(window.number(), desktop);
}

}  // namespace roomlattice
