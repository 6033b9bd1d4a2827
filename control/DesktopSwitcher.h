#pragma once

#include "platform/Platform.h"
#include "spaces/SpaceManager.h"

namespace roomlattice {

/// Switches desktops for those who cannot see how far a switch has come. Swipes lead so many desktops on, wherever that
/// is by then: so there is one journey at a time, and what is asked for meanwhile comes after it, the last wish only. A
/// journey that does not arrive in time is given up, and with it the wish that was to follow.
class DesktopSwitcher {
 public:
  DesktopSwitcher(platform::Platform& platform, SpaceManager& manager);

  /// Where all that has been asked for will have led; the active desktop when nothing is under way.
  platform::SpaceID destination() const { return isTravelling() ? destination_ : manager_.activeSpaceID(); }

  /// Goes to a regular desktop; nothing happens without one in front.
  void switchTo(platform::SpaceID desktop);

 private:
  bool isTravelling() const { return static_cast<bool>(patience_); }
  void depart();
  void arrived();

  platform::Platform& platform_;
  SpaceManager& manager_;
  platform::SpaceID destination_ = 0;
  // Where the journey under way leads.
  platform::SpaceID next_ = 0;
  // Ends a journey that does not arrive; there is one as long as this is set.
  platform::Registration patience_;
  platform::Registration arrivals_;
};

}  // namespace roomlattice
