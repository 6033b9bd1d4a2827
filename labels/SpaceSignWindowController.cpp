#include "labels/SpaceSignWindowController.h"

#include "labels/LabelScreen.h"
#include "labels/SignView.h"
#include "preferences/PreferencesStore.h"
#include "spaces/SpaceManager.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace roomlattice {
namespace {

constexpr double horizontalMargin = 80.0;
constexpr double verticalMargin = 60.0;
constexpr double widestShareOfScreen = 0.9;
constexpr double highestShareOfScreen = 0.6;

SignView* signView(const platform::Window& window) {
  return dynamic_cast<SignView*>(window.contentView());
}

void setText(const platform::Window& window, const std::string& name) {
  if (SignView* view = signView(window)) {
    view->setText(name);
  }
}

}  // namespace

SpaceSignWindowController::SpaceSignWindowController(platform::Platform& platform) : platform_(platform) {
  ensureSignForActiveSpace();
  observeChanges();
  // Keeps the half-second timer of a process without a visible window from being throttled.
  activityToken_ = platform.system().beginActivity(platform::ActivityKind::UserInitiatedAllowingIdleSystemSleep,
                                                   "Keep desktop-label priming responsive");
  startPrimeTimer();
  startMouseMonitor();
}

void SpaceSignWindowController::observeChanges() {
  platform::NotificationCenter& process = platform_.notifications().defaultCenter();
  platform::NotificationCenter& workspace = platform_.notifications().workspaceCenter();
  namespace notification = platform::notification;
  observers_ = {
      process.observe(SpaceManager::didChange, [this] { spacesChanged(); }),
      process.observe(SpaceManager::activeChanged, [this] { activeChanged(); }),
      process.observe(PreferencesStore::didChange, [this] { screenParametersChanged(); }),
      workspace.observe(notification::activeSpaceDidChange, [this] { primeNonActiveSigns(); }),
      process.observe(notification::didChangeScreenParameters, [this] { screenParametersChanged(); }),
      process.observe(SpaceManager::tourWillStart, [this] { tourWillStart(); }),
      process.observe(SpaceManager::tourDidEnd, [this] { tourDidEnd(); }),
      workspace.observe(notification::didWake, [this] { primeNonActiveSigns(); }),
  };
}

void SpaceSignWindowController::ensureSignForActiveSpace() {
  const SpaceManager& manager = SpaceManager::shared();
  const SpaceInfo* active = manager.activeSpace();
  if (active == nullptr) {
    return;
  }
  const std::string name = manager.displayName(*active);
  if (const platform::Window* existing = window(active->spaceID)) {
    setText(*existing, name);
    return;
  }
  WindowPointer made = makeSignWindow(name, 0.0);
  pinWindow(*made, active->spaceID);
  windows_[active->spaceID] = std::move(made);
}

SpaceSignWindowController::WindowPointer SpaceSignWindowController::makeSignWindow(const std::string& name,
                                                                                   double alpha) {
  const platform::Rect frame = signFrame(name);
  WindowPointer made = platform_.userInterface().createOverlayWindow({.frame = frame,
                                                                      .level = platform::WindowLevel::Floating,
                                                                      .collectionBehavior = ordinaryBehavior,
                                                                      .alpha = alpha});
  auto view = std::make_unique<SignView>(platform_, name);
  view->setFrame({{}, frame.size});
  made->setContentView(std::move(view));
  made->orderFront();
  return made;
}

platform::Rect SpaceSignWindowController::signFrame(const std::string& text) const {
  const platform::Rect screen = labelScreen(platform_.userInterface()).frame;
  const platform::Size measured = platform_.userInterface().measure(text, SignView::labelFont());
  const double width = std::min(measured.width + 2 * horizontalMargin, screen.size.width * widestShareOfScreen);
  const double height = std::min(measured.height + 2 * verticalMargin, screen.size.height * highestShareOfScreen);
  return {{screen.midX() - width * 0.5, screen.midY() - height * 0.5}, {width, height}};
}

void SpaceSignWindowController::pinWindow(const platform::Window& window, platform::SpaceID space) {
  platform_.windowServer().addWindowToSpace(window.number(), space);
}

void SpaceSignWindowController::moveToFrame(platform::Window& window, const platform::Rect& frame) {
  window.setFrame(frame);
  if (platform::View* view = window.contentView()) {
    view->setFrame({{}, frame.size});
  }
}

void SpaceSignWindowController::spacesChanged() {
  const SpaceManager& manager = SpaceManager::shared();
  const std::vector<SpaceInfo> desktops = regularSpaces(manager.spaces());
  std::erase_if(windows_, [&](const auto& entry) {
    const bool stale = std::ranges::find(desktops, entry.first, &SpaceInfo::spaceID) == desktops.end();
    if (stale) {
      entry.second->orderOut();
    }
    return stale;
  });
  for (const SpaceInfo& desktop : desktops) {
    if (platform::Window* label = window(desktop.spaceID)) {
      const std::string name = manager.displayName(desktop);
      setText(*label, name);
      moveToFrame(*label, signFrame(name));
    }
  }
}

void SpaceSignWindowController::screenParametersChanged() {
  const SpaceManager& manager = SpaceManager::shared();
  for (const auto& [spaceID, label] : windows_) {
    const auto space = std::ranges::find(manager.spaces(), spaceID, &SpaceInfo::spaceID);
    if (space != manager.spaces().end()) {
      moveToFrame(*label, signFrame(manager.displayName(*space)));
    }
  }
}

platform::Window* SpaceSignWindowController::window(platform::SpaceID space) const {
  const auto found = windows_.find(space);
  return found == windows_.end() ? nullptr : found->second.get();
}

}  // namespace roomlattice
