#pragma once

#include "platform/Controls.h"
#include "platform/x11/connection/NativeWindow.h"
#include "platform/x11/connection/WindowManagerWatch.h"
#include "platform/x11/connection/X11Connection.h"
#include "platform/x11/desktops/X11Desktops.h"

#include <QWidget>
#include <string>
#include <vector>

class QTabWidget;

namespace roomlattice::platform::x11 {

/// The preferences window: a window of fixed size with native tabs and controls, at the places the model gives. A page
/// whose controls need more room than it has can be scrolled.
class X11TabbedWindow final : public TabbedWindow {
 public:
  /// The others must outlive the window.
  X11TabbedWindow(const TabbedWindowModel& model, X11Connection& connection, const WindowManagerWatch& windowManager,
                  const X11Desktops& desktops);

  void show() override;
  void setText(ControlReference label, const std::string& text) override;
  void setEnabled(ControlReference button, bool enabled) override;

 private:
  void addPage(QTabWidget& tabs, const TabPage& page);
  void followKeys(QTabWidget& tabs);
  void center();
  void bringToCurrentDesktop();

  X11Connection& connection_;
  const X11Desktops& desktops_;
  QWidget window_;
  NativeWindow native_;
  // By page and place; owned by the window.
  std::vector<std::vector<QWidget*>> controls_;
  // A control that was disabled while it had the keyboard.
  QWidget* awaitsFocus_ = nullptr;
};

}  // namespace roomlattice::platform::x11
