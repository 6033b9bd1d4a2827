#pragma once

#include "platform/NotificationCenter.h"
#include "platform/WindowServer.h"
#include "spaces/SpaceManager.h"

#include <cstddef>
#include <optional>
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
  /// What was made of a dictionary in the list.
  struct Parsed {
    platform::Value dictionary;
    std::string displayUUID;
    std::optional<SpaceInfo> space;
  };

  std::vector<SpaceInfo> parse(const platform::Value& displays);
  const std::optional<SpaceInfo>& parse(std::size_t position, const platform::Value& dictionary,
                                        const std::string& displayUUID);

  platform::WindowServer& windowServer_;
  SpaceManager& spaces_;
  // Of the last list, in its order: most of the next one is the same.
  std::vector<Parsed> parsed_;
  platform::Registration observation_;
};

}  // namespace roomlattice
