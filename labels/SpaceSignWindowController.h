#pragma once

#include "labels/SignWindows.h"
#include "labels/TourOverlay.h"
#include "platform/DockSwipe.h"
#include "platform/Platform.h"
#include "preferences/PreferencesStore.h"
#include "spaces/SpaceManager.h"
#include "support/Lifetime.h"

#include <array>
#include <set>
#include <string>

namespace roomlattice {

/// Decides how visible the label of each desktop is. Labels stay ordered in; only their alpha changes. A label is made
/// when its desktop becomes active or is swiped to, and goes when its desktop does.
class SpaceSignWindowController {
 public:
  /// Makes the active desktop's label and from then on follows desktops, preferences, screens, tours and the pointer.
  SpaceSignWindowController(platform::Platform& platform, const SpaceManager& manager,
                            const PreferencesStore& preferences);

  /// Shows the labels of all desktops but the active one, for 15 s or until the pointer enters the label area or the
  /// desktop changes.
  void showAll();

  /// Ends showAll: all labels fade out.
  void hideAll();

  /// The user has begun to swipe. Shows the labels of the other desktops and makes sure the one ahead has its label
  /// before it slides in.
  void handleSwipeBegan(platform::Direction direction);

  /// The frame of a label with this text: centred on the main screen, in screen coordinates. Having no screen at all
  /// stops the program.
  platform::Rect signFrame(const std::string& text) const { return windows_.signFrame(text); }

 private:
  void observeChanges();
  void ensureSignForActiveSpace();
  void activeChanged();
  void flashActiveSign();
  void createSignForSwipe(platform::SpaceID activeSpaceID, platform::Direction direction, double alpha);
  void startMouseMonitor();
  void mouseMoved();
  void startPrimeTimer();
  void primeNonActiveSigns();
  void tourWillStart();
  void tourDidEnd();
  void setInactiveAlpha(platform::SpaceID activeSpaceID, double alpha);
  void setAllAlpha(double alpha);

  platform::Platform& platform_;
  const SpaceManager& manager_;
  const PreferencesStore& preferences_;
  SignWindows windows_;
  TourOverlay tourOverlay_;
  // Pending work; an empty registration is none.
  platform::Registration hideWorkItem_;
  platform::Registration flashWorkItem_;
  platform::Registration mouseMonitor_;
  bool isShowing_ = false;
  platform::Registration primeTimer_;
  // The labels the pointer has pushed away, until the desktop changes.
  std::set<platform::SpaceID> dismissedSpaceIDs_;
  bool isTouring_ = false;
  platform::Registration activityToken_;
  std::array<platform::Registration, 8> observers_;
  Lifetime lifetime_;
};

}  // namespace roomlattice
