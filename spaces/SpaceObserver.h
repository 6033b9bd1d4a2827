#pragma once

#include "platform/NotificationCenter.h"
#include "platform/WindowServer.h"
#include "spaces/SpaceManager.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace roomlattice {

/// Takes snapshots of the window server's desktops and hands them to the model: when it is told to, and whenever the
/// workspace reports another active desktop.
class SpaceObserver {
 public:
  SpaceObserver(platform::WindowServer& windowServer, platform::NotificationCenter& workspace, SpaceManager& spaces);

  /// The workspace reported another active desktop.
  void activeSpaceDidChange() { refresh(); }

  /// Reads the list and the active desktop now. A malformed list reads as an empty one.
  void refresh();

 private:
  /// A dictionary in the list, and the identifier of its display. Both belong to `displays_`.
  struct Listed {
    const platform::Value::Dictionary* dictionary;
    const std::string* displayUUID;
    /// False for a dictionary without an identifier, which is no space.
    bool isSpace = false;
  };

  /// What is to be done to the list that was read before: `by` stands in the place of `count` spaces.
  struct Change {
    std::size_t first = 0;
    std::size_t count = 0;
    std::vector<SpaceInfo> by = {};
  };

  static std::vector<Listed> listedIn(const platform::Value& displays);
  static std::size_t countSpaces(std::span<const Listed> listed);
  static bool areSame(const Listed& a, const Listed& b);
  Change take(platform::Value displays);

  platform::WindowServer& windowServer_;
  SpaceManager& spaces_;
  // As last read: most of the next list is the same.
  platform::Value displays_;
  std::vector<Listed> listed_;
  // When the model got it. Later changes of the model's list are somebody else's.
  SpaceTable::Moment handedOverAt_ = 0;
  platform::Registration observation_;
};

}  // namespace roomlattice
