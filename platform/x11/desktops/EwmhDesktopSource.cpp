#include "platform/x11/desktops/EwmhDesktopSource.h"

#include "platform/x11/connection/Properties.h"
#include "platform/x11/desktops/StableHash.h"

#include <algorithm>
#include <set>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

// Far more than anybody has; a number beyond it is garbage.
constexpr std::uint32_t maximumCount = 1000;

std::vector<Desktop> desktopsByPosition(std::size_t count) {
  std::vector<Desktop> desktops;
  for (std::size_t position = 1; position <= count; ++position) {
    desktops.push_back({position, "desktop-" + std::to_string(position)});
  }
  return desktops;
}

/// Names beyond `count` belong to desktops that are gone. A name that is missing or not the only one of its kind has
/// its place added, so that no two desktops are taken for one.
std::vector<Desktop> desktopsByName(const std::vector<std::string>& names, std::size_t count) {
  std::vector<Desktop> desktops;
  std::set<std::string> taken;
  for (std::size_t index = 0; index < count; ++index) {
    std::string uuid = "workspace-" + (index < names.size() ? names[index] : "");
    while (!taken.insert(uuid).second) {
      uuid += "#" + std::to_string(index + 1);
    }
    desktops.push_back({stableHash(uuid), uuid});
  }
  return desktops;
}

}  // namespace

EwmhDesktopSource::EwmhDesktopSource(X11Connection& connection, DesktopIdentity identity, std::function<void()> changed)
    : connection_(connection), identity_(identity), changed_(std::move(changed)) {
  propertyEvents_ = connection.observe<xcb_property_notify_event_t>(
      [this](const auto& notify) { propertyChanged(notify.window, notify.atom); });
  batches_ = connection.observeBatches([this] { batchEnded(); });
  connection.selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE);
}

std::optional<DesktopList> EwmhDesktopSource::read() {
  const xcb_ewmh_connection_t& ewmh = *connection_.ewmh();
  const xcb_window_t root = connection_.root();
  const auto count = readNumber(connection_, root, ewmh._NET_NUMBER_OF_DESKTOPS, XCB_ATOM_CARDINAL);
  if (!count || *count == 0 || *count > maximumCount) {
    return std::nullopt;
  }
  DesktopList list{.desktops = readDesktops(*count)};
  const auto current = readNumber(connection_, root, ewmh._NET_CURRENT_DESKTOP, XCB_ATOM_CARDINAL);
  // On Wayland GNOME's window manager writes it with the first switch only.
  if (current.value_or(0) < *count) {
    list.current = current.value_or(0);
  }
  return list;
}

void EwmhDesktopSource::activate(std::size_t index) {
  connection_.sendToRoot(connection_.root(), connection_.ewmh()->_NET_CURRENT_DESKTOP,
                         {static_cast<std::uint32_t>(index), XCB_CURRENT_TIME, 0, 0, 0});
}

std::vector<Desktop> EwmhDesktopSource::readDesktops(std::size_t count) {
  if (identity_ == DesktopIdentity::Position) {
    return desktopsByPosition(count);
  }
  const auto names = readTexts(connection_, connection_.root(), connection_.ewmh()->_NET_DESKTOP_NAMES);
  return desktopsByName(names.value_or(std::vector<std::string>()), count);
}

void EwmhDesktopSource::propertyChanged(xcb_window_t window, xcb_atom_t atom) {
  const xcb_ewmh_connection_t& ewmh = *connection_.ewmh();
  dirty_ = dirty_ || (window == connection_.root() &&
                      (atom == ewmh._NET_NUMBER_OF_DESKTOPS || atom == ewmh._NET_CURRENT_DESKTOP ||
                       (identity_ == DesktopIdentity::Name && atom == ewmh._NET_DESKTOP_NAMES)));
}

void EwmhDesktopSource::batchEnded() {
  if (std::exchange(dirty_, false)) {
    changed_();
  }
}

}  // namespace roomlattice::platform::x11
