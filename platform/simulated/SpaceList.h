#pragma once

#include "platform/WindowServer.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace roomlattice::platform::simulated {

/// The window server's types of space that the machine makes.
namespace spaceType {
inline constexpr std::int64_t regular = 0;
inline constexpr std::int64_t fullScreen = 4;
}  // namespace spaceType

struct Space {
  SpaceID id = 0;
  std::string uuid;
  std::int64_t type = spaceType::regular;

  bool isRegular() const { return type == spaceType::regular; }

  bool operator==(const Space&) const = default;
};

struct Display {
  std::string identifier;
  std::vector<Space> spaces;
  /// As the window server tells of them, one for each.
  Value::Array dictionaries = {};
  /// 0 when the display has no space.
  SpaceID active = 0;

  bool operator==(const Display&) const = default;
};

/// The displays with their desktops and full-screen spaces, which of them is in front on each, and which display has
/// the keyboard. It tells nobody of changes; SimulatedDesktop does. Unknown identifiers change nothing.
class SpaceList {
 public:
  const std::vector<Display>& displays() const { return displays_; }

  /// All spaces, by display and then by their order on it.
  std::vector<Space> all() const;
  std::vector<Space> regular() const;

  std::optional<Space> find(SpaceID space) const;

  /// The space in front on the display with the keyboard; 0 when there is none.
  SpaceID activeSpace() const;

  /// Adds a display without spaces and returns its index.
  std::size_t addDisplay(std::string identifier);

  /// The keyboard goes to the first display that is left.
  void removeDisplay(std::size_t display);

  void giveKeyboardTo(std::size_t display);
  std::size_t keyboardDisplay() const { return keyboardDisplay_; }

  /// Inserts a space at `position` on a display, or at its end. The first space of a display is active.
  void insert(std::size_t display, Space space, std::optional<std::size_t> position = std::nullopt);

  /// In place of an active space the one before it comes to the front, or the one after it where it was the first.
  void remove(SpaceID space);

  /// Moves a space to `position` among those of its display.
  void move(SpaceID space, std::size_t position);

  /// Brings a space to the front of its display, which gets the keyboard.
  void activate(SpaceID space);

  /// In the form WindowServer::managedDisplaySpaces describes.
  Value managedDisplaySpaces() const;

  /// Another number after each change.
  std::uint64_t changes() const { return changes_; }

  bool operator==(const SpaceList& other) const {
    return displays_ == other.displays_ && keyboardDisplay_ == other.keyboardDisplay_;
  }

 private:
  Display* displayWith(SpaceID space);
  void spacesChanged();

  std::vector<Display> displays_;
  std::size_t keyboardDisplay_ = 0;
  std::uint64_t changes_ = 0;
  // Made when it is asked for, until spaces change.
  mutable std::optional<Value> told_;
};

}  // namespace roomlattice::platform::simulated
