#include "platform/x11/desktops/X11DesktopNames.h"

#include "support/Difference.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace roomlattice::platform::x11 {
namespace {

constexpr const char* sharedKey = "DesktopNames.Shared";

}  // namespace

X11DesktopNames::X11DesktopNames(X11Desktops& desktops, Defaults& defaults, NotificationCenter& defaultCenter)
    : desktops_(desktops),
      defaults_(defaults),
      changes_(desktops.observeNames([this] { namesChanged(); })),
      edits_(defaultCenter.observe(notification::defaultsDidChangeElsewhere, [this] { listeners_.notify(); })) {}

const DesktopNames::Names* X11DesktopNames::known() {
  const DesktopList& list = desktops_.list();
  const bool isShared = !list.names.empty() && sharing() == Sharing::On;
  if (isShared) {
    bringUpToDate(list);
  } else {
    names_.clear();
  }
  read_ = list;
  return isShared ? &names_ : nullptr;
}

/// Most are as they were.
void X11DesktopNames::bringUpToDate(const DesktopList& list) {
  const Difference difference = differenceOf(
      names_.empty() ? 0 : read_.desktops.size(), list.desktops.size(), [&](std::size_t before, std::size_t after) {
        return read_.names[before] == list.names[after] && read_.desktops[before] == list.desktops[after];
      });
  for (std::size_t index = 0; index < difference.before; ++index) {
    names_.erase(read_.desktops[difference.first + index].uuid);
  }
  for (std::size_t index = difference.first; index < difference.first + difference.after; ++index) {
    names_[list.desktops[index].uuid] = list.names[index];
  }
}

void X11DesktopNames::set(const std::string& uuid, const std::string& name) {
  const std::vector<Desktop>& desktops = desktops_.list().desktops;
  const auto found = std::ranges::find(desktops, uuid, &Desktop::uuid);
  if (sharing() == Sharing::On) {
    desktops_.rename(static_cast<std::size_t>(std::distance(desktops.begin(), found)), name);
  }
}

void X11DesktopNames::namesChanged() {
  // With another list of desktops come other names, and whoever has heard of the list has read them already.
  const DesktopList& list = desktops_.list();
  if (read_.desktops != list.desktops || read_.names != list.names) {
    listeners_.notify();
  }
}

X11DesktopNames::Sharing X11DesktopNames::sharing() const {
  const std::optional<Value> stored = defaults_.object(sharedKey);
  return stored && stored->toBool() == false ? Sharing::Off : Sharing::On;
}

void X11DesktopNames::setSharing(Sharing sharing) {
  defaults_.set(sharedKey, sharing == Sharing::On);
  listeners_.notify();
}

}  // namespace roomlattice::platform::x11
