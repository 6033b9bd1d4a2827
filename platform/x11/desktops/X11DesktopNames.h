#pragma once

#include "platform/Defaults.h"
#include "platform/DesktopNames.h"
#include "platform/NotificationCenter.h"
#include "platform/x11/desktops/X11Desktops.h"
#include "support/Listeners.h"

#include <functional>
#include <string>

namespace roomlattice::platform::x11 {

/// The names that the window manager has for the desktops: KWin's own, and _NET_DESKTOP_NAMES (EWMH 1.5), which pagers
/// may change as well, of all others. There is nothing to share while the user does not want to.
class X11DesktopNames final : public DesktopNames {
 public:
  enum class Sharing { On, Off };

  /// In `defaultCenter` it hears of edits of the settings.
  X11DesktopNames(X11Desktops& desktops, Defaults& defaults, NotificationCenter& defaultCenter);

  const Names* known() override;
  void set(const std::string& uuid, const std::string& name) override;
  Registration observe(std::function<void()> handler) override { return listeners_.add(std::move(handler)); }

  /// Kept in the settings under "DesktopNames.Shared", a Boolean; on unless stored otherwise.
  Sharing sharing() const;
  void setSharing(Sharing sharing);

 private:
  void namesChanged();
  void bringUpToDate(const DesktopList& list);

  X11Desktops& desktops_;
  Defaults& defaults_;
  // As it was when the names were last read.
  DesktopList read_;
  // Those in it, or none.
  Names names_;
  Listeners<> listeners_;
  Registration changes_;
  Registration edits_;
};

}  // namespace roomlattice::platform::x11
