#include "platform/x11/appearance/XSettingsWatch.h"

#include "platform/x11/appearance/XSettings.h"
#include "platform/x11/connection/Properties.h"

#include <utility>

namespace roomlattice::platform::x11 {
namespace {

// Owners that come and go without a pause are not worth following.
constexpr int mostAttempts = 5;

}  // namespace

XSettingsWatch::XSettingsWatch(X11Connection& connection, std::function<void()> changed)
    : connection_(connection),
      changed_(std::move(changed)),
      selection_(connection.atom("_XSETTINGS_S" + std::to_string(connection.screenNumber()))),
      property_(connection.atom("_XSETTINGS_SETTINGS")) {
  announcements_ = connection.observe<xcb_client_message_event_t>([this](const auto& message) {
    if (message.type == connection_.ewmh()->MANAGER && message.format == 32 && message.data.data32[1] == selection_) {
      otherManager_ = true;
    }
  });
  propertyEvents_ = connection.observe<xcb_property_notify_event_t>([this](const auto& notify) {
    otherSettings_ = otherSettings_ || (notify.window == manager_ && notify.atom == property_);
  });
  destroyEvents_ = connection.observe<xcb_destroy_notify_event_t>(
      [this](const auto& event) { otherManager_ = otherManager_ || event.window == manager_; });
  batches_ = connection.observeBatches([this] { batchEnded(); });
  // ICCCM: new managers are announced to those who listen for structure changes of the root window.
  connection.selectOnRoot(XCB_EVENT_MASK_STRUCTURE_NOTIFY);
  followManager();
}

std::optional<std::string> XSettingsWatch::text(const std::string& name) const {
  const auto found = texts_.find(name);
  return found == texts_.end() ? std::nullopt : std::optional(found->second);
}

void XSettingsWatch::batchEnded() {
  const bool otherManager = std::exchange(otherManager_, false);
  const bool otherSettings = std::exchange(otherSettings_, false);
  if (otherManager) {
    followManager();
  } else if (otherSettings) {
    read();
  } else {
    return;
  }
  changed_();
}

void XSettingsWatch::followManager() {
  // An owner may go between being found and being followed: then there is another one, or none.
  for (int attempt = 0; attempt < mostAttempts; ++attempt) {
    manager_ = connection_.selectionOwner(selection_);
    if (manager_ != XCB_WINDOW_NONE) {
      const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
      xcb_change_window_attributes(connection_.raw(), manager_, XCB_CW_EVENT_MASK, &events);
    }
    if (connection_.selectionOwner(selection_) == manager_) {
      break;
    }
  }
  read();
}

void XSettingsWatch::read() {
  const auto bytes =
      manager_ == XCB_WINDOW_NONE ? std::nullopt : readBytes(connection_, manager_, property_, property_);
  texts_ = bytes ? parseXSettings(*bytes).value_or(std::map<std::string, std::string>())
                 : std::map<std::string, std::string>();
}

}  // namespace roomlattice::platform::x11
