#pragma once

#include "labels/SignPlacement.h"
#include "platform/Platform.h"
#include "preferences/PreferencesStore.h"
#include "spaces/SpaceManager.h"

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace roomlattice {

/// The label windows, at most one per desktop: makes them, attaches each to its desktop, and keeps their names and
/// places up to date. How visible they are is not decided here.
class SignWindows {
 public:
  // Shared: a deferred fade keeps its window.
  using WindowPointer = std::shared_ptr<platform::Window>;
  struct Label {
    WindowPointer window;
    /// The name that the window's text and frame were last made for; nothing where they have to be made again.
    std::optional<std::string> name;
    /// What came of that frame.
    platform::Rect frame;
    /// Where the desktop was last seen in the list.
    std::size_t place = 0;
  };
  using Map = std::map<platform::SpaceID, Label>;

  static constexpr platform::CollectionBehavior ordinaryBehavior = platform::CollectionBehavior::Managed |
                                                                   platform::CollectionBehavior::IgnoresCycle |
                                                                   platform::CollectionBehavior::FullScreenAuxiliary;

  SignWindows(platform::Platform& platform, const SpaceManager& manager, const PreferencesStore& preferences)
      : platform_(platform), manager_(manager), preferences_(preferences) {}

  const Map& all() const { return windows_; }

  /// Null for a desktop without a label.
  WindowPointer find(platform::SpaceID desktop) const;

  /// Makes the label of a desktop that has none, orders it in and attaches it to the desktop.
  platform::Window& make(const SpaceInfo& desktop, double alpha);

  /// Brings the name on a desktop's label up to date, and makes one of no alpha where there is none.
  void ensure(const SpaceInfo& desktop);

  /// Drops the labels of desktops that have gone; brings the names and frames of the others up to date.
  void spacesChanged();

  /// Brings the frames up to date with the screens and the text size.
  void place();

  /// The frame of a label with this text.
  platform::Rect signFrame(const std::string& text) const { return placement().frameOf(text); }

 private:
  bool isOfRegularSpace(platform::SpaceID desktop, Label& label) const;
  static bool isAsMade(const Label& label);
  /// Drops the labels of desktops that have gone, and marks those that are to be made again.
  void lookThrough();
  void bringUpToDate(const SpaceInfo& desktop, const SignPlacement& placement);
  SignPlacement placement() const;
  void pinWindow(const platform::Window& window, platform::SpaceID desktop);

  platform::Platform& platform_;
  const SpaceManager& manager_;
  const PreferencesStore& preferences_;
  Map windows_;
  // The frame of no text when all were placed last, which tells of the screen and of the font; nothing where some were
  // placed later.
  std::optional<platform::Rect> placedBy_;
  // Desktops that have not changed since then have their names on their labels.
  SpaceTable::Moment namedAt_ = 0;
};

}  // namespace roomlattice
