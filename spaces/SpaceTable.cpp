#include "spaces/SpaceTable.h"

#include <algorithm>
#include <iterator>
#include <tuple>
#include <utility>

namespace roomlattice {
namespace {

using Offset = std::vector<SpaceInfo>::difference_type;

}  // namespace

const SpaceInfo* SpaceTable::first(platform::SpaceID spaceID) const {
  const auto idAt = [this](std::size_t place) { return spaces_[place].spaceID; };
  const auto found = std::ranges::lower_bound(byID_, spaceID, {}, idAt);
  return found == byID_.end() || idAt(*found) != spaceID ? nullptr : &spaces_[*found];
}

const SpaceInfo* SpaceTable::firstRegular(const std::string& uuid) const {
  const std::span<const std::size_t> places = placesOf(uuid);
  const auto found = std::ranges::find_if(places, [this](std::size_t place) { return spaces_[place].isRegular(); });
  return found == places.end() ? nullptr : &spaces_[*found];
}

std::span<const std::size_t> SpaceTable::placesOf(const std::string& uuid) const {
  const auto uuidAt = [this](std::size_t place) -> const std::string& { return spaces_[place].uuid; };
  const auto begin = std::ranges::lower_bound(byUUID_, uuid, {}, uuidAt);
  const auto end = std::find_if(begin, byUUID_.end(), [&](std::size_t place) { return uuidAt(place) != uuid; });
  return {begin, end};
}

Difference SpaceTable::replace(std::size_t first, std::size_t count, std::vector<SpaceInfo> by) {
  Difference difference = differenceOf(
      count, by.size(), [&](std::size_t before, std::size_t after) { return spaces_[first + before] == by[after]; });
  const auto begin = by.begin() + static_cast<Offset>(difference.first);
  const auto end = begin + static_cast<Offset>(difference.after);
  difference.first += first;
  if (difference.empty()) {
    return difference;
  }
  listChangedAt_ = ++now_;
  const std::size_t removedEnd = difference.first + difference.before;
  const auto isRemoved = [&](std::size_t place) { return place >= difference.first && place < removedEnd; };
  for (Places* places : {&byID_, &byUUID_}) {
    std::erase_if(*places, isRemoved);
    for (std::size_t& place : *places) {
      place += place < removedEnd ? 0 : difference.after - difference.before;
    }
  }
  const auto at = static_cast<Offset>(difference.first);
  const auto removed = static_cast<Offset>(difference.before);
  spaces_.insert(spaces_.erase(spaces_.begin() + at, spaces_.begin() + at + removed), std::move_iterator(begin),
                 std::move_iterator(end));
  rows_.insert(rows_.erase(rows_.begin() + at, rows_.begin() + at + removed), difference.after, {.changedAt = now_});
  for (std::size_t place = difference.first; place < difference.first + difference.after; ++place) {
    add(byID_, place, &SpaceInfo::spaceID);
    add(byUUID_, place, &SpaceInfo::uuid);
  }
  renumber(difference.first);
  return difference;
}

void SpaceTable::renamed(const std::string& uuid) {
  ++now_;
  for (const std::size_t place : placesOf(uuid)) {
    rows_[place].changedAt = now_;
  }
}

template <class Member>
void SpaceTable::add(Places& places, std::size_t place, Member member) {
  const auto isBefore = [&](std::size_t a, std::size_t b) {
    return std::tie(spaces_[a].*member, a) < std::tie(spaces_[b].*member, b);
  };
  places.insert(std::ranges::upper_bound(places, place, isBefore), place);
}

/// Numbers on a display start anew, unlike the order of switching, which runs across all of them.
void SpaceTable::renumber(std::size_t from) {
  const auto isRegular = [](const Row& row) { return row.numbers.overall > 0; };
  const auto before = std::ranges::find_if(rows_.rend() - static_cast<Offset>(from), rows_.rend(), isRegular);
  int overall = before == rows_.rend() ? 0 : before->numbers.overall;
  for (std::size_t place = from; place < spaces_.size(); ++place) {
    Numbers numbers;
    if (spaces_[place].isRegular()) {
      numbers = {.overall = ++overall, .onDisplay = lastOnDisplay(place) + 1};
    }
    if (std::exchange(rows_[place].numbers, numbers) != numbers) {
      rows_[place].changedAt = now_;
    }
  }
}

/// The number of the last regular desktop before on the same display, which is hardly ever far away.
int SpaceTable::lastOnDisplay(std::size_t place) const {
  const std::string& display = spaces_[place].displayUUID;
  for (std::size_t before = place; before > 0; --before) {
    if (spaces_[before - 1].isRegular() && spaces_[before - 1].displayUUID == display) {
      return rows_[before - 1].numbers.onDisplay;
    }
  }
  return 0;
}

}  // namespace roomlattice
