#pragma once

#include "platform/DesktopNames.h"
#include "platform/Platform.h"
#include "spaces/SpaceManager.h"

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace roomlattice {

/// Keeps the names of desktops the same here and in the desktop environment, while that has names to share.
///
/// At the start a name that is kept here wins, and is given to the environment a second later; the names of desktops
/// that have none here are borrowed from it. From then on a rename on either side reaches the other one. The numbers by
/// which environments count desktops that nobody has named count as no names.
///
/// Taking a name never leads to asking for one, so that nothing goes round in a circle. What the environment makes of a
/// wish of ours (it may refuse or cut a name, or set all of them anew) is no rename: the name here stays, and the wish
/// is not repeated.
class NameExchange {
 public:
  /// Takes the names at once.
  NameExchange(platform::Platform& platform, SpaceManager& spaces);

 private:
  using Names = platform::DesktopNames::Names;

  enum class Phase {
    /// The environment may still be about to set its names.
    Starting,
    /// It may still be about to answer a wish, or a change of the list of desktops.
    Settling,
    AtRest,
  };

  /// What is known of a desktop's name.
  struct Entry {
    std::optional<std::string> here;
    std::string there;
    /// What it was there when we last asked for another; nothing as long as we have not.
    std::optional<std::string> before;
    /// Where the desktop was last seen in the list.
    std::size_t place = 0;
  };

  /// A desktop with what it is called there, and its entry where it has one.
  struct Meeting {
    SpaceInfo desktop;
    const std::string* there;
    Entry* entry;
  };

  /// How much of what the environment has changed at once. A user renames one desktop; it sets all of them anew.
  enum class Extent { One, Several };

  void compare();
  void follow(const Names& names);
  void forget();
  std::vector<Meeting> changesSinceLast(const Names& names);
  void addChangedThere(std::set<std::size_t>& places, const Names& names) const;
  Extent takeStock(const std::vector<Meeting>& meetings);
  void forgetThoseThatWent();
  bool isListed(const std::string& uuid, Entry& entry) const;
  void meet(const SpaceInfo& desktop, const std::string& there);
  void compare(const SpaceInfo& desktop, Entry& entry, const std::string& there, Extent extent);
  bool isAnswer(const SpaceInfo& desktop, const std::string& there, Extent extent) const;
  void take(const SpaceInfo& desktop, const std::string& there);
  void ask(const SpaceInfo& desktop);
  std::string wishFor(const SpaceInfo& desktop) const;
  void lend(const std::vector<Meeting>& meetings);
  void begin(Phase phase);
  void endPhase();

  platform::DesktopNames& names_;
  platform::Dispatcher& dispatcher_;
  SpaceManager& spaces_;
  std::map<std::string, Entry> entries_;
  // What has not changed in the model since then was compared.
  SpaceTable::Moment comparedAt_ = 0;
  // What is to be lent from now on, and no longer.
  SpaceManager::BorrowedNameChanges lending_;
  Phase phase_ = Phase::AtRest;
  // While names go from one side to the other, nobody else changes any.
  bool comparing_ = false;
  platform::Registration phaseEnd_;
  platform::Registration changesHere_;
  platform::Registration changesThere_;
};

}  // namespace roomlattice
