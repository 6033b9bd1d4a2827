#include "platform/x11/desktops/EwmhDesktopSource.h"

#include "platform/x11/connection/Properties.h"
#include "platform/x11/desktops/StableHash.h"

#include <algorithm>
#include <set>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

// What is larger is not meant to be read by anybody, and least of all to be written anew for the sake of one name.
constexpr std::size_t maximumNamesSize = 65536;

/// Lets there be so many of them.
void resizeByPosition(std::vector<Desktop>& desktops, std::size_t count) {
  desktops.resize(std::min(desktops.size(), count));
  while (desktops.size() < count) {
    const std::size_t position = desktops.size() + 1;
    desktops.push_back({position, "desktop-" + std::to_string(position)});
  }
}

/// A name that is missing or not the only one of its kind has its place added, so that no two desktops are taken for
/// one.
std::vector<Desktop> desktopsByName(const std::vector<std::string>& names) {
  std::vector<Desktop> desktops;
  std::set<std::string> taken;
  for (std::size_t index = 0; index < names.size(); ++index) {
    std::string uuid = "workspace-" + names[index];
    while (!taken.insert(uuid).second) {
      uuid += "#" + std::to_string(index + 1);
    }
    desktops.push_back({stableHash(uuid), uuid});
  }
  return desktops;
}

/// The property with another name at `index`. Desktops before it that have none are numbered: an empty name would be
/// shown as such.
std::string withNameAt(std::vector<std::string> names, std::size_t index, const std::string& name) {
  while (names.size() <= index) {
    names.push_back("Desktop " + std::to_string(names.size() + 1));
  }
  names[index] = name;
  return bytesOf(names);
}

}  // namespace

EwmhDesktopSource::EwmhDesktopSource(X11Connection& connection, DesktopIdentity identity, std::function<void()> changed)
    : connection_(connection), identity_(identity), changed_(std::move(changed)) {
  propertyEvents_ = connection.observe<xcb_property_notify_event_t>(
      [this](const auto& notify) { propertyChanged(notify.window, notify.atom); });
  batches_ = connection.observeBatches([this] { batchEnded(); });
  connection.selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE);
}

const DesktopList* EwmhDesktopSource::known() {
  if (std::exchange(listDirty_, false)) {
    readList();
  }
  if (list_.desktops.empty()) {
    return nullptr;
  }
  const auto current =
      readNumber(connection_, connection_.root(), connection_.ewmh()->_NET_CURRENT_DESKTOP, XCB_ATOM_CARDINAL);
  // On Wayland GNOME's window manager writes it with the first switch only.
  const std::size_t inFront = current.value_or(0);
  list_.current = inFront < list_.desktops.size() ? std::optional(inFront) : std::nullopt;
  return &list_;
}

void EwmhDesktopSource::activate(std::size_t index) {
  connection_.sendToRoot(connection_.root(), connection_.ewmh()->_NET_CURRENT_DESKTOP,
                         {static_cast<std::uint32_t>(index), XCB_CURRENT_TIME, 0, 0, 0});
}

void EwmhDesktopSource::rename(std::size_t index, const std::string& name) {
  if (identity_ == DesktopIdentity::Name) {
    return;
  }
  const xcb_ewmh_connection_t& ewmh = *connection_.ewmh();
  const xcb_window_t root = connection_.root();
  const auto before = readBytes(connection_, root, ewmh._NET_DESKTOP_NAMES, ewmh.UTF8_STRING);
  const std::string names = withNameAt(rawTextsOf(before.value_or("")), index, name);
  if (names.size() > maximumNamesSize) {
    return;
  }
  xcb_change_property(connection_.raw(), XCB_PROP_MODE_REPLACE, root, ewmh._NET_DESKTOP_NAMES, ewmh.UTF8_STRING, 8,
                      static_cast<std::uint32_t>(names.size()), names.data());
  connection_.flush();
}

void EwmhDesktopSource::readList() {
  const xcb_ewmh_connection_t& ewmh = *connection_.ewmh();
  const xcb_window_t root = connection_.root();
  const auto count = readNumber(connection_, root, ewmh._NET_NUMBER_OF_DESKTOPS, XCB_ATOM_CARDINAL);
  if (!count || *count > maximumDesktops) {
    list_ = DesktopList();
    return;
  }
  replaceTexts(list_.names, readBytes(connection_, root, ewmh._NET_DESKTOP_NAMES, ewmh.UTF8_STRING).value_or(""));
  // Names beyond belong to desktops that are gone.
  list_.names.resize(*count);
  if (identity_ == DesktopIdentity::Position) {
    resizeByPosition(list_.desktops, *count);
  } else {
    list_.desktops = desktopsByName(list_.names);
  }
}

void EwmhDesktopSource::propertyChanged(xcb_window_t window, xcb_atom_t atom) {
  if (window != connection_.root()) {
    return;
  }
  const xcb_ewmh_connection_t& ewmh = *connection_.ewmh();
  currentDirty_ = currentDirty_ || atom == ewmh._NET_CURRENT_DESKTOP;
  listDirty_ = listDirty_ || atom == ewmh._NET_NUMBER_OF_DESKTOPS || atom == ewmh._NET_DESKTOP_NAMES;
}

void EwmhDesktopSource::batchEnded() {
  if (std::exchange(currentDirty_, false) || listDirty_) {
    changed_();
  }
}

}  // namespace roomlattice::platform::x11
