#pragma once

#include "platform/Registration.h"

#include <functional>
#include <map>
#include <optional>
#include <string>

namespace roomlattice::platform {

/// The names that the desktop environment itself keeps for desktops, as its own pagers show them. Many environments
/// have none.
class DesktopNames {
 public:
  /// By the uuid of the desktop, as WindowServer gives it. What is not in it has no name.
  using Names = std::map<std::string, std::string>;

  virtual ~DesktopNames() = default;

  /// The names as the environment has them now, its own numbering ("Workspace 3") among them: UTF-8 of any length.
  /// Null where it has no names to share, or while they are not known: what it had before counts no more then. Valid
  /// until the event loop goes on.
  virtual const Names* known() = 0;

  /// A copy of them.
  std::optional<Names> read() {
    const Names* names = known();
    return names == nullptr ? std::nullopt : std::optional(*names);
  }

  /// Asks the environment to give a desktop this name, UTF-8. It may do so later, give it another one or none, or not
  /// heed the wish at all; what it does is to be read. Nothing happens for a desktop that it does not know.
  virtual void set(const std::string& uuid, const std::string& name) = 0;

  /// Calls `handler` when there may be others, but never from within `set`.
  virtual Registration observe(std::function<void()> handler) = 0;
};

}  // namespace roomlattice::platform
