#include "platform/x11/statusitem/ItemPlacement.h"

#include <utility>

namespace roomlattice::platform::x11 {

using linux::TrayWatch;

ItemPlacement::ItemPlacement(ItemSettings& settings, TrayWatch& watch, std::function<void()> changed)
    : settings_(settings), watch_(watch), changed_(std::move(changed)), choice_(settings.place()) {
  hostChanges_ = watch.observe([this] { changed_(); });
}

bool ItemPlacement::isInPanel() const {
  return choice_ != ItemPlace::Floating && watch_.state() == TrayWatch::State::Present;
}

bool ItemPlacement::isFloating() const {
  return choice_ != ItemPlace::Panel || watch_.state() == TrayWatch::State::Absent;
}

void ItemPlacement::settingsChanged() {
  choice_ = settings_.place();
  changed_();
}

void ItemPlacement::choose(ItemPlace place) {
  settings_.setPlace(place);
  choice_ = place;
  changed_();
}

}  // namespace roomlattice::platform::x11
