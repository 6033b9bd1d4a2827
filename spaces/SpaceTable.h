#pragma once

#include "platform/WindowServer.h"
#include "spaces/SpaceInfo.h"
#include "support/Difference.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace roomlattice {

/// The list of desktops with what is looked up in it: where a desktop stands, which number it has, and when it last
/// changed. Most changes concern one desktop of many: they cost what they change, but for walks over plain numbers.
class SpaceTable {
 public:
  /// Counts changes.
  using Moment = std::uint64_t;

  /// The places of a regular desktop, from 1: among all, and among those of its display. Both are 0 for others.
  struct Numbers {
    int overall = 0;
    int onDisplay = 0;

    bool operator==(const Numbers&) const = default;
  };

  struct Row {
    Numbers numbers;
    /// When the desktop came, or last got another number or name.
    Moment changedAt = 0;
  };

  const std::vector<SpaceInfo>& spaces() const { return spaces_; }

  /// One for each desktop.
  const std::vector<Row>& rows() const { return rows_; }

  /// The first desktop with that identifier, of any type; null where there is none.
  const SpaceInfo* first(platform::SpaceID spaceID) const;

  /// The first regular desktop with that uuid; null where there is none.
  const SpaceInfo* firstRegular(const std::string& uuid) const;

  /// The row of an element of the list.
  const Row& rowOf(const SpaceInfo& listed) const { return rows_[static_cast<std::size_t>(&listed - spaces_.data())]; }

  /// Of the last change.
  Moment now() const { return now_; }
  Moment listChangedAt() const { return listChangedAt_; }

  /// Puts `by` in the place of `count` desktops from `first` on. Gives the part that really differs: desktops that the
  /// old and the new stretch have in common at their beginning or end are left out.
  Difference replace(std::size_t first, std::size_t count, std::vector<SpaceInfo> by);

  /// Desktops with that uuid have another name.
  void renamed(const std::string& uuid);

 private:
  /// Places in the list, in the order of one member of the desktops there, and then in the list's.
  using Places = std::vector<std::size_t>;

  std::span<const std::size_t> placesOf(const std::string& uuid) const;
  template <class Member>
  void add(Places& places, std::size_t place, Member member);
  void renumber(std::size_t from);
  int lastOnDisplay(std::size_t place) const;

  std::vector<SpaceInfo> spaces_;
  std::vector<Row> rows_;
  Places byID_;
  Places byUUID_;
  Moment now_ = 0;
  Moment listChangedAt_ = 0;
};

}  // namespace roomlattice
