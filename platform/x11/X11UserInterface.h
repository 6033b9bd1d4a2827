#pragma once

#include "platform/Defaults.h"
#include "platform/NotificationCenter.h"
#include "platform/UserInterface.h"
#include "platform/linux/bus/MessageBus.h"
#include "platform/x11/appearance/X11Appearance.h"
#include "platform/x11/desktops/X11DesktopNames.h"
#include "platform/x11/windows/X11Window.h"

#include <QFont>
#include <chrono>
#include <cstddef>
#include <map>
#include <string>
#include <unordered_map>

namespace roomlattice::platform::x11 {

/// What the program's windows, menus and texts stand on. All of it outlives them.
struct UserInterfaceEnvironment {
  X11Connection& connection;
  WindowManagerWatch& windowManager;
  X11Screens& screens;
  X11Appearance& appearance;
  X11Desktops& desktops;
  X11DesktopNames& desktopNames;
  WindowAttachments& attachments;
  linux::MessageBus& sessionBus;
  Defaults& defaults;
  NotificationCenter& defaultCenter;
  /// The user has switched labels off when one is not to be seen from other desktops for so long, which is longer than
  /// a tour.
  std::chrono::milliseconds longestUnseen{30'000};
};

/// What the program shows, as Qt widgets. A point is a logical pixel of Qt. Everything it makes must go before it and
/// before the Qt application.
class X11UserInterface final : public UserInterface {
 public:
  explicit X11UserInterface(const UserInterfaceEnvironment& environment);

  std::vector<Screen> screens() const override { return environment_.screens.screens(); }
  std::optional<Screen> mainScreen() const override { return environment_.screens.mainScreen(); }
  std::optional<Appearance> effectiveAppearance() const override { return environment_.appearance.current(); }
  Color accentColor() const override { return environment_.appearance.accentColor(); }
  double systemFontSize() const override;
  Size measure(const std::string& text, const Font& font) const override;
  Size intrinsicSize(const Control& control) const override;
  std::unique_ptr<StatusItem> createStatusItem(const StatusItemLength& length) override;
  std::unique_ptr<Window> createOverlayWindow(const OverlayWindowOptions& options) override;
  std::unique_ptr<TabbedWindow> createTabbedWindow(const TabbedWindowModel& model) override;

 private:
  UserInterfaceEnvironment environment_;
  CompositorWatch compositor_;
  OverlayManagement overlayManagement_;
  OverlayEnvironment overlays_;
  // What was measured, so that a change of one name shapes one text, however many labels there are.
  mutable std::map<QFont, std::unordered_map<std::string, Size>> measured_;
  mutable std::size_t measuredCount_ = 0;
};

}  // namespace roomlattice::platform::x11
