#pragma once

#include "platform/Platform.h"
#include "spaces/DesktopTour.h"
#include "spaces/DockSwipePoster.h"
#include "spaces/SpaceInfo.h"
#include "spaces/SpaceTable.h"
#include "support/Lifetime.h"

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace roomlattice {

/// The one model of the desktops: the latest snapshot, which desktop is active, and the names users gave; and the way
/// to move among them. All other parts of the program read desktops only from here. Notifications
/// are posted synchronously on the default centre.
class SpaceManager {
 public:
  static constexpr std::string_view didChange = "SpaceManagerDidChange";
  static constexpr std::string_view activeChanged = "SpaceManagerActiveSpaceChanged";
  static constexpr std::string_view tourWillStart = "SpaceManagerTourWillStart";
  static constexpr std::string_view tourDidEnd = "SpaceManagerTourDidEnd";

  /// The instance of the installed platform, made on first use.
  static SpaceManager& shared();

  /// Loads the names.
  explicit SpaceManager(platform::Platform& platform);

  /// All desktops of all displays in the window server's order, those that are not regular included.
  const std::vector<SpaceInfo>& spaces() const { return table_.spaces(); }

  /// The same, with what is looked up in it.
  const SpaceTable& table() const { return table_; }

  /// 0 before the first snapshot.
  platform::SpaceID activeSpaceID() const { return activeSpaceID_; }

  /// The first desktop in the list with that identifier, of any type; null when the list has none. Valid until the next
  /// update.
  const SpaceInfo* firstSpace(platform::SpaceID spaceID) const { return table_.first(spaceID); }

  /// The same for the active identifier.
  const SpaceInfo* activeSpace() const;

  /// The desktop the user is on: the active one, but during a tour the one that was active when it began. Like
  /// activeSpace otherwise.
  const SpaceInfo* homeSpace() const;

  /// Stores a snapshot, remembers every regular desktop in it, and posts didChange if the list is another one and then
  /// activeChanged if the active desktop is another one.
  void update(std::vector<SpaceInfo> spaces, platform::SpaceID activeSpaceID);

  /// The same for a snapshot that differs from the list in some of it only: `by` stands in the place of `count`
  /// desktops from `first` on. Gives the moment of the list's last change, as it was before anything was posted.
  SpaceTable::Moment replace(std::size_t first, std::size_t count, std::vector<SpaceInfo> by,
                             platform::SpaceID activeSpaceID);

  /// The name the user gave the desktop, or "Desktop" with its number among the regular desktops of its display. A name
  /// that was borrowed stands in for the latter.
  std::string displayName(const SpaceInfo& space) const;

  /// The name that is kept for the desktop's uuid; null when there is none. Valid until the next name is set.
  const std::string* storedName(const SpaceInfo& space) const;

  /// The same, or else the borrowed one. Valid until the next name is set or borrowed.
  const std::string* givenName(const SpaceInfo& space) const;

  /// The number in the display name of a desktop that has no name; nothing for others.
  std::optional<int> defaultNumber(const SpaceInfo& space) const;

  /// Keeps `name`, without white space at its ends, for the desktop's uuid; a blank name brings the default title back.
  /// Posts didChange in any case. `space` may belong to the list.
  void setName(const std::string& name, const SpaceInfo& space);

  /// Names, by uuid, that desktops have elsewhere, in place of those borrowed before. They stand in for default titles
  /// and are not kept; a name set here ends the one borrowed for its desktop. Posts didChange if they are others.
  void borrowNames(const std::map<std::string, std::string>& names);

  /// By uuid, the name that is borrowed from now on, or nothing where none is. Those of other desktops stay.
  using BorrowedNameChanges = std::map<std::string, std::optional<std::string>>;

  /// The same for some names of many.
  void changeBorrowedNames(const BorrowedNameChanges& changes);

  /// Moves to `space` from the active desktop by one Dock swipe for each regular desktop on the way, over all displays.
  /// All swipes are scheduled now and none is posted before this returns. Does nothing unless both desktops are regular
  /// ones of the list.
  void switchToSpace(const SpaceInfo& space, SwitchStyle style);

  /// Visits every regular desktop and returns to the active one: to the last desktop, back to the first, and forward.
  /// `completion` is called once: at the end, or from within this call when there is nothing to tour. Another tour that
  /// runs is replaced.
  void performAutoTour(std::function<void()> completion = {});

 private:
  const SpaceInfo* find(const SpaceInfo& space) const;
  void loadNames();
  void rememberRegularSpaces(std::size_t first, std::size_t count);
  void takeKnown(const platform::Value& stored);
  void post(std::string_view notification);

  platform::Platform& platform_;
  SpaceTable table_;
  // As last stored, and the same for looking up.
  platform::Value known_;
  std::unordered_set<std::string> knownUUIDs_;
  platform::SpaceID activeSpaceID_ = 0;
  // While there is a tour, and the same for one that replaces another.
  std::optional<platform::SpaceID> tourHome_;
  std::map<std::string, std::string> names_;
  std::map<std::string, std::string> borrowedNames_;
  DockSwipePoster swipes_;
  DesktopTour tour_;
  Lifetime lifetime_;
};

}  // namespace roomlattice
