#pragma once

#include "platform/Color.h"
#include "platform/Registration.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice::platform {

/// A desktop as other programs are told of it.
struct DesktopState {
  /// Its place among the regular desktops of all displays, from 1; nothing for a full-screen space, which cannot be
  /// switched to.
  std::optional<int> number;
  std::string name;
  Color color;
  bool isActive = false;
  /// What its name and colour are kept under.
  std::string uuid;
  /// The identifier of its display.
  std::string display;

  bool operator==(const DesktopState&) const = default;
};

enum class DesktopChangeKind {
  /// It has come to the front.
  Switched,
  Added,
  /// It is told as it was.
  Removed,
  /// It has another number, or is on another display.
  Moved,
  Renamed,
  Recolored,
};

struct DesktopChange {
  DesktopChangeKind kind = DesktopChangeKind::Switched;
  DesktopState desktop;

  bool operator==(const DesktopChange&) const = default;
};

enum class CommandErrorKind {
  NoSuchDesktop,
  AmbiguousDesktop,
  /// The desktop that is meant is a full-screen space.
  FullScreenDesktop,
  /// There is nothing before the first desktop and nothing after the last.
  NoFurtherDesktop,
  InvalidName,
  /// Not as things are now; the message says why.
  NotPossible,
};

/// Why a command was refused.
struct CommandError {
  CommandErrorKind kind = CommandErrorKind::NotPossible;
  /// One line for people, with the candidates in it.
  std::string message;
  /// Those that a desktop's name was looked for among, or that it fits.
  std::vector<DesktopState> candidates = {};

  bool operator==(const CommandError&) const = default;
};

/// Nothing when the command was accepted. What it brings about may come later.
using CommandResult = std::optional<CommandError>;

/// What the program tells other programs, and does for them. A desktop is named by its number, its name, its uuid, or
/// a beginning of its name that no other has.
class Commands {
 public:
  virtual ~Commands() = default;

  /// All desktops in their order, full-screen spaces included.
  virtual std::vector<DesktopState> desktops() const = 0;

  /// The one in front; nothing while none is known.
  virtual std::optional<DesktopState> currentDesktop() const = 0;

  virtual CommandResult switchTo(const std::string& desktop) = 0;
  virtual CommandResult switchToNext() = 0;
  virtual CommandResult switchToPrevious() = 0;

  /// An empty name brings the default one back. While the tour passes other desktops, the current one is still that
  /// which it has set out from.
  virtual CommandResult rename(const std::string& desktop, const std::string& name) = 0;
  virtual CommandResult renameCurrent(const std::string& name) = 0;

  virtual CommandResult showLabels() = 0;
  virtual CommandResult hideLabels() = 0;
  virtual CommandResult openMenu() = 0;
  virtual CommandResult openPreferences() = 0;
  virtual CommandResult startTour() = 0;
  virtual CommandResult quit() = 0;

  /// Calls `handler` with what has changed about the desktops, all changes of one moment together.
  virtual Registration observe(std::function<void(const std::vector<DesktopChange>&)> handler) = 0;
};

/// The door through which other programs of the user's session reach this one, where the system has one.
class ControlEndpoint {
 public:
  virtual ~ControlEndpoint() = default;

  /// Lets other programs use `commands`, which must outlive the registration. One at a time.
  virtual Registration serve(Commands& commands) = 0;
};

}  // namespace roomlattice::platform
