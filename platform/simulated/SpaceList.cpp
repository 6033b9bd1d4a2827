#include "platform/simulated/SpaceList.h"

#include "platform/ManagedSpaces.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace roomlattice::platform::simulated {
namespace {

using Difference = std::vector<Space>::difference_type;

}  // namespace

std::vector<Space> SpaceList::all() const {
  std::vector<Space> spaces;
  for (const Display& display : displays_) {
    std::ranges::copy(display.spaces, std::back_inserter(spaces));
  }
  return spaces;
}

std::vector<Space> SpaceList::regular() const {
  std::vector<Space> spaces = all();
  std::erase_if(spaces, [](const Space& space) { return !space.isRegular(); });
  return spaces;
}

std::optional<Space> SpaceList::find(SpaceID space) const {
  for (const Display& display : displays_) {
    const auto found = std::ranges::find(display.spaces, space, &Space::id);
    if (found != display.spaces.end()) {
      return *found;
    }
  }
  return std::nullopt;
}

SpaceID SpaceList::activeSpace() const {
  return keyboardDisplay_ < displays_.size() ? displays_[keyboardDisplay_].active : 0;
}

std::size_t SpaceList::addDisplay(std::string identifier) {
  displays_.push_back({.identifier = std::move(identifier)});
  spacesChanged();
  return displays_.size() - 1;
}

void SpaceList::removeDisplay(std::size_t display) {
  if (display >= displays_.size()) {
    return;
  }
  displays_.erase(displays_.begin() + static_cast<Difference>(display));
  spacesChanged();
  if (keyboardDisplay_ == display) {
    keyboardDisplay_ = 0;
  } else if (keyboardDisplay_ > display) {
    --keyboardDisplay_;
  }
}

void SpaceList::giveKeyboardTo(std::size_t display) {
  if (display < displays_.size() && display != keyboardDisplay_) {
    keyboardDisplay_ = display;
    ++changes_;
  }
}

void SpaceList::insert(std::size_t display, Space space, std::optional<std::size_t> position) {
  if (display >= displays_.size()) {
    return;
  }
  Display& target = displays_[display];
  if (target.spaces.empty()) {
    target.active = space.id;
  }
  const auto at = static_cast<Difference>(std::min(position.value_or(target.spaces.size()), target.spaces.size()));
  target.dictionaries.insert(target.dictionaries.begin() + at, spaceDictionary(space.id, space.uuid, space.type));
  target.spaces.insert(target.spaces.begin() + at, std::move(space));
  spacesChanged();
}

void SpaceList::remove(SpaceID space) {
  Display* const display = displayWith(space);
  if (display == nullptr) {
    return;
  }
  std::vector<Space>& spaces = display->spaces;
  const auto found = std::ranges::find(spaces, space, &Space::id);
  display->dictionaries.erase(display->dictionaries.begin() + (found - spaces.begin()));
  auto next = spaces.erase(found);
  spacesChanged();
  if (display->active != space) {
    return;
  }
  if (next != spaces.begin()) {
    --next;
  }
  display->active = spaces.empty() ? 0 : next->id;
}

void SpaceList::move(SpaceID space, std::size_t position) {
  Display* const display = displayWith(space);
  if (display == nullptr) {
    return;
  }
  std::vector<Space>& spaces = display->spaces;
  const Difference from = std::ranges::find(spaces, space, &Space::id) - spaces.begin();
  const auto to = static_cast<Difference>(std::min(position, spaces.size() - 1));
  if (from == to) {
    return;
  }
  const auto rotate = [from, to](auto& list) {
    const auto begin = list.begin();
    std::rotate(begin + std::min(from, to), begin + (from < to ? from + 1 : from), begin + std::max(from, to) + 1);
  };
  rotate(spaces);
  rotate(display->dictionaries);
  spacesChanged();
}

void SpaceList::activate(SpaceID space) {
  Display* const display = displayWith(space);
  if (display == nullptr || space == activeSpace()) {
    return;
  }
  display->active = space;
  keyboardDisplay_ = static_cast<std::size_t>(display - displays_.data());
  ++changes_;
}

Value SpaceList::managedDisplaySpaces() const {
  if (!told_) {
    Value::Array displays;
    for (const Display& display : displays_) {
      displays.push_back(displayDictionary(display.identifier, display.dictionaries));
    }
    told_ = std::move(displays);
  }
  return *told_;
}

void SpaceList::spacesChanged() {
  ++changes_;
  told_.reset();
}

Display* SpaceList::displayWith(SpaceID space) {
  const auto found = std::ranges::find_if(displays_, [space](const Display& display) {
    return std::ranges::find(display.spaces, space, &Space::id) != display.spaces.end();
  });
  return found == displays_.end() ? nullptr : &*found;
}

}  // namespace roomlattice::platform::simulated
