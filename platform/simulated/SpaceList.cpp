#include "platform/simulated/SpaceList.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace roomlattice::platform::simulated {
namespace {

using Difference = std::vector<Space>::difference_type;

Value toDictionary(const Space& space) {
  Value::Dictionary dictionary;
  dictionary.emplace("ManagedSpaceID", static_cast<std::int64_t>(space.id));
  dictionary.emplace("type", space.type);
  dictionary.emplace("uuid", space.uuid);
  return dictionary;
}

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
  return displays_.size() - 1;
}

void SpaceList::removeDisplay(std::size_t display) {
  if (display >= displays_.size()) {
    return;
  }
  displays_.erase(displays_.begin() + static_cast<Difference>(display));
  if (keyboardDisplay_ == display) {
    keyboardDisplay_ = 0;
  } else if (keyboardDisplay_ > display) {
    --keyboardDisplay_;
  }
}

void SpaceList::giveKeyboardTo(std::size_t display) {
  if (display < displays_.size()) {
    keyboardDisplay_ = display;
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
  const std::size_t at = std::min(position.value_or(target.spaces.size()), target.spaces.size());
  target.spaces.insert(target.spaces.begin() + static_cast<Difference>(at), std::move(space));
}

void SpaceList::remove(SpaceID space) {
  Display* const display = displayWith(space);
  if (display == nullptr) {
    return;
  }
  std::vector<Space>& spaces = display->spaces;
  auto next = spaces.erase(std::ranges::find(spaces, space, &Space::id));
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
  const auto from = std::ranges::find(spaces, space, &Space::id);
  const auto to = spaces.begin() + static_cast<Difference>(std::min(position, spaces.size() - 1));
  if (from < to) {
    std::rotate(from, from + 1, to + 1);
  } else {
    std::rotate(to, from, from + 1);
  }
}

void SpaceList::activate(SpaceID space) {
  if (Display* const display = displayWith(space)) {
    display->active = space;
    keyboardDisplay_ = static_cast<std::size_t>(display - displays_.data());
  }
}

Value SpaceList::managedDisplaySpaces() const {
  Value::Array displays;
  for (const Display& display : displays_) {
    // All of it is moved: a list in braces would be copied.
    Value::Array spaces;
    spaces.reserve(display.spaces.size());
    std::ranges::transform(display.spaces, std::back_inserter(spaces), toDictionary);
    Value::Dictionary dictionary;
    dictionary.emplace("Display Identifier", display.identifier);
    dictionary.emplace("Spaces", std::move(spaces));
    displays.emplace_back(std::move(dictionary));
  }
  return displays;
}

Display* SpaceList::displayWith(SpaceID space) {
  const auto found = std::ranges::find_if(displays_, [space](const Display& display) {
    return std::ranges::find(display.spaces, space, &Space::id) != display.spaces.end();
  });
  return found == displays_.end() ? nullptr : &*found;
}

}  // namespace roomlattice::platform::simulated
