#pragma once

#include "platform/simulated/ChildProcesses.h"
#include "platform/simulated/DesktopNameList.h"
#include "platform/simulated/DisplaySettings.h"
#include "platform/simulated/Dock.h"
#include "platform/simulated/EventStream.h"
#include "platform/simulated/Faults.h"
#include "platform/simulated/SpaceList.h"
#include "platform/simulated/StatusBar.h"
#include "platform/simulated/SystemLog.h"
#include "platform/simulated/VirtualTime.h"
#include "platform/simulated/WindowList.h"
#include "support/InProcessNotificationCenter.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace roomlattice::platform::simulated {

/// A space to be made.
struct NewSpace {
  /// One is made up where this is empty.
  std::string uuid;
  std::int64_t type = spaceType::regular;
  /// The index of the display.
  std::size_t display = 0;
  /// Among the spaces of its display; at the end where there is none.
  std::optional<std::size_t> position;
};

/// A whole desktop in memory: the machine a program runs on, and runs on again. It keeps displays and desktops,
/// screens, stored settings, the log and the pasteboard from one run of a program to the next (SimulatedPlatform is one
/// run), and shows what windows the program has. All of it, background tasks included, runs on one thread.
///
/// Time is virtual: it passes only in advance(), which runs what falls due on the way. The functions that change the
/// desktop are each one turn of the program's event loop: the change is reported to the program before they return.
/// What the user does with hands is SimulatedUser's, what can go wrong stands in `faults`.
class SimulatedDesktop {
 public:
  /// The program's name in the log.
  static constexpr const char* processName = "Roomlattice";

  /// One screen of 1440 × 900 points; one display, "Display 1", with so many regular desktops, the first in front; the
  /// light appearance; a log tool at /usr/bin/log.
  explicit SimulatedDesktop(int desktops = 3);
  SimulatedDesktop(const SimulatedDesktop&) = delete;
  SimulatedDesktop& operator=(const SimulatedDesktop&) = delete;

  Faults faults;

  // --- Time
  Duration now() const { return time_.now(); }
  void advance(Duration duration) { time_.advance(duration); }
  /// Queues an act of the script, for while the program's own event loop runs.
  void after(Duration delay, VirtualTime::Task act) { time_.post(delay, std::move(act)); }
  /// While the machine sleeps, advance() lets time pass on the wall clock only.
  void sleep() { time_.setAsleep(true); }
  void wake();
  void sleepFor(Duration duration);

  // --- Displays and desktops; unknown identifiers and indices change nothing
  const SpaceList& spaces() const { return spaces_; }
  SpaceID activeSpace() const { return spaces_.activeSpace(); }
  /// The regular desktop at `index`, counted from 0 across all displays; 0 when there are not so many.
  SpaceID desktopAt(std::size_t index) const;
  SpaceID addDesktop(const NewSpace& description = {});
  void removeDesktop(SpaceID space);
  void moveDesktop(SpaceID space, std::size_t position);
  /// A new full-screen space, right of the active one on its display, comes to the front. 0 without any display.
  SpaceID enterFullScreen();
  /// Brings a desktop to the front by other means than a swipe.
  void switchTo(SpaceID space);
  /// Returns the index of the display.
  std::size_t addDisplay(const std::string& identifier, int desktops = 1);
  void removeDisplay(std::size_t display);
  void giveKeyboardTo(std::size_t display);
  /// Lets the window server report this in place of the truth, or the truth again; nobody is told.
  void overrideManagedDisplaySpaces(std::optional<Value> displays) { displaysOverride_ = std::move(displays); }
  void overrideActiveSpace(std::optional<SpaceID> space) { activeOverride_ = space; }
  /// The workspace reports another active desktop, whether there is one or not.
  void reportActiveSpaceChange();

  /// The names that the desktop environment keeps for desktops.
  DesktopNameList& names() { return names_; }
  const DesktopNameList& names() const { return names_; }

  // --- Screens and appearance
  const DisplaySettings& settings() const { return settings_; }
  /// The primary screen first, which becomes the main one. May be empty.
  void setScreens(const std::vector<Rect>& frames);
  /// The keyboard focus goes to another screen, or to none.
  void setMainScreen(std::optional<std::size_t> index) { settings_.mainScreen = index; }
  void setAppearance(std::optional<Appearance> appearance);
  void setAccentColor(const Color& color) { settings_.accentColor = color; }

  // --- What the program has left in the system
  Value::Dictionary& storedDefaults() { return storedDefaults_; }
  SystemLog& log() { return log_; }
  ChildProcesses& childProcesses() { return childProcesses_; }
  const std::optional<std::string>& pasteboard() const { return pasteboard_; }
  void setPasteboard(const std::string& text) { pasteboard_ = text; }

  // --- What the program shows
  WindowList& windows() { return windows_; }
  /// The overlay windows a desktop holds, seen or not: ordered in, and attached to it or on all desktops. A removed
  /// desktop takes no window along; those that were on it alone are on none.
  std::vector<SimulatedWindow*> windowsOn(SpaceID space) const;
  /// Of those, the ones that can be seen while the desktop is in front: with an opacity above 0.
  std::vector<SimulatedWindow*> visibleWindowsOn(SpaceID space) const;
  StatusBar& statusBar() { return statusBar_; }
  /// The first; null while there is none.
  SimulatedStatusItem* statusItem() const;
  SimulatedTabbedWindow* tabbedWindow() const;
  std::shared_ptr<MenuSession> menu() { return statusBar_.menu(); }
  /// True where a click goes to the program: on its status item, its open menu or a visible tabbed window.
  bool programTakesMouseAt(Point point);
  /// True while a menu or a tabbed window of the program is open.
  bool programHasKeyboard();

  // --- The machinery, for the platform, the user, and scripts with special wishes
  VirtualTime& time() { return time_; }
  Dock& dock() { return dock_; }
  EventStream& events() { return events_; }
  InProcessNotificationCenter& announcements() { return announcements_; }
  Value managedDisplaySpaces() const;
  SpaceID reportedActiveSpace() const { return activeOverride_.value_or(spaces_.activeSpace()); }

 private:
  template <class Change>
  void changeSpaces(Change change);
  SpaceID insertSpace(const NewSpace& description);
  void detachWindowsFrom(SpaceID space);

  VirtualTime time_;
  SpaceList spaces_;
  SpaceID nextSpace_ = 101;
  DesktopNameList names_{time_};
  std::optional<Value> displaysOverride_;
  std::optional<SpaceID> activeOverride_;
  InProcessNotificationCenter announcements_;
  Dock dock_;
  EventStream events_;
  DisplaySettings settings_;
  WindowList windows_;
  StatusBar statusBar_;
  Value::Dictionary storedDefaults_;
  SystemLog log_;
  ChildProcesses childProcesses_;
  std::optional<std::string> pasteboard_;
};

}  // namespace roomlattice::platform::simulated
