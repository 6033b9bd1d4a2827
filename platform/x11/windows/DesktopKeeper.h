#pragma once

#include "platform/Window.h"
#include "platform/linux/system/OneShotTimer.h"
#include "platform/x11/connection/NativeWindow.h"
#include "platform/x11/windows/OverlayEnvironment.h"

#include <QElapsedTimer>
#include <QWidget>
#include <cstdint>

namespace roomlattice::platform::x11 {

/// Keeps an overlay window on its desktop, or on all desktops: some window managers move windows to the desktop of
/// another window.
class DesktopKeeper {
 public:
  /// `widget` and `window` are the two sides of the overlay window and must outlive the keeper. The window's property
  /// events have to be selected.
  DesktopKeeper(OverlayEnvironment& environment, const QWidget& widget, NativeWindow& window,
                CollectionBehavior behavior);

  /// The window is on no desktop in particular from then on.
  ~DesktopKeeper();

  DesktopKeeper(const DesktopKeeper&) = delete;
  DesktopKeeper& operator=(const DesktopKeeper&) = delete;

  /// Moves the window when it is shown and has to be elsewhere now.
  void setCollectionBehavior(CollectionBehavior behavior);

  bool joinsAllDesktops() const;

  /// Where the window has to be, as window managers count desktops.
  std::uint32_t wantedDesktop() const;

  /// Whether the window belongs to the desktop in front, or to all.
  bool isInFront() const;

  /// Whether the window may be mapped now.
  bool mayBeMapped() const;

  /// To be called before the window is mapped: the window manager may be corrected again.
  void windowWillAppear();

 private:
  std::uint32_t ownDesktop() const;
  void attachmentChanged();
  void propertyChanged(const xcb_property_notify_event_t& property);
  void correct();

  OverlayEnvironment& environment_;
  const QWidget& widget_;
  NativeWindow& window_;
  CollectionBehavior behavior_;
  // How many more times in a row the window manager is asked to put the window back.
  int corrections_ = 0;
  QElapsedTimer sinceCorrection_;
  linux::OneShotTimer correctSoon_{[this] { correct(); }};
  Registration attachment_;
  Registration propertyEvents_;
};

}  // namespace roomlattice::platform::x11
