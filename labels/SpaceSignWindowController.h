#pragma once

#include "platform/DockSwipe.h"
#include "platform/Platform.h"
#include "spaces/SpaceInfo.h"
#include "support/Lifetime.h"

#include <array>
#include <map>
#include <memory>
#include <set>
#include <string>

namespace roomlattice {

/// Owns one click-through label window per desktop, attached to that desktop, and decides how visible each is. Labels
/// stay ordered in; only their alpha changes. A window is made when its desktop becomes active or is swiped to, and
/// goes when its desktop does. Main thread only.
class SpaceSignWindowController {
 public:
  /// Makes the active desktop's label and from then on follows desktops, preferences, screens, tours and the pointer.
  explicit SpaceSignWindowController(platform::Platform& platform);

  /// Shows the labels of all desktops but the active one, for 15 s or until the pointer enters the label area or the
  /// desktop changes.
  void showAll();

  /// Ends showAll: all labels fade out.
  void hideAll();

  /// The user has begun to swipe. Shows the labels of the other desktops
  /// and makes sure the one ahead has its label before it slides in.
  void handleSwipeBegan(platform::Direction direction);

  /// The frame of a label with this text: centred on the main screen, in screen coordinates. Having no screen at all
  /// stops the program.
  platform::Rect signFrame(const std::string& text) const;

 private:
  // Shared: a deferred fade keeps its window.
  using WindowPointer = std::shared_ptr<platform::Window>;

  static constexpr platform::CollectionBehavior ordinaryBehavior = platform::CollectionBehavior::Managed |
                                                                   platform::CollectionBehavior::IgnoresCycle |
                                                                   platform::CollectionBehavior::FullScreenAuxiliary;

  void observeChanges();

  // Label windows.
  void ensureSignForActiveSpace();
  WindowPointer makeSignWindow(const std::string& name, double alpha);
  void pinWindow(const platform::Window& window, platform::SpaceID space);
  void moveToFrame(platform::Window& window, const platform::Rect& frame);
  void spacesChanged();
  void screenParametersChanged();

  // Visibility.
  void activeChanged();
  void flashActiveSign();
  void createSignForSwipe(platform::SpaceID activeSpaceID, platform::Direction direction, double alpha);
  void startMouseMonitor();
  void mouseMoved();
  void setInactiveAlpha(platform::SpaceID activeSpaceID, double alpha);
  void setAllAlpha(double alpha);
  platform::Window* window(platform::SpaceID space) const;

  // Priming and the tour.
  void startPrimeTimer();
  void primeNonActiveSigns();
  void tourWillStart();
  void tourDidEnd();
  void showTourOverlay();
  void hideTourOverlay();

  platform::Platform& platform_;
  std::map<platform::SpaceID, WindowPointer> windows_;
  // Pending work; an empty registration is none.
  platform::Registration hideWorkItem_;
  platform::Registration flashWorkItem_;
  platform::Registration mouseMonitor_;
  bool isShowing_ = false;
  platform::Registration primeTimer_;
  // The labels the pointer has pushed away, until the desktop changes.
  std::set<platform::SpaceID> dismissedSpaceIDs_;
  bool isTouring_ = false;
  WindowPointer tourOverlayWindow_;
  platform::Registration activityToken_;
  std::array<platform::Registration, 8> observers_;
  Lifetime lifetime_;
};

}  // namespace roomlattice
