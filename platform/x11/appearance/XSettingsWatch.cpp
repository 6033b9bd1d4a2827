#include "platform/x11/appearance/XSettingsWatch.h"

#include "platform/x11/appearance/XSettings.h"
#include "platform/x11/connection/Properties.h"

#include <utility>

namespace roomlattice::platform::x11 {

XSettingsWatch::XSettingsWatch(X11Connection& connection, std::function<void()> changed)
    : connection_(connection),
      changed_(std::move(changed)),
      selection_(connection.atom("_XSETTINGS_S" + std::to_string(connection.screenNumber()))),
      property_(connection.atom("_XSETTINGS_SETTINGS")) {
  announcements_ = connection.observe<xcb_client_message_event_t>([this](const auto& message) {
    if (message.type == connection_.ewmh()->MANAGER && message.format == 32 && message.data.data32[1] == selection_) {
      followManager();
      changed_();
    }
  });
  propertyEvents_ = connection.observe<xcb_property_notify_event_t>([this](const auto& notify) {
    if (notify.window == manager_ && notify.atom == property_) {
      read();
      changed_();
    }
  });
  destroyEvents_ = connection.observe<xcb_destroy_notify_event_t>([this](const auto& event) {
    if (event.window == manager_) {
      followManager();
      changed_();
    }
  });
  // ICCCM: new managers are announced to those who listen for structure changes of the root window.
  connection.selectOnRoot(XCB_EVENT_MASK_STRUCTURE_NOTIFY);
  followManager();
}

std::optional<std::string> XSettingsWatch::text(const std::string& name) const {
  const auto found = texts_.find(name);
  return found == texts_.end() ? std::nullopt : std::optional(found->second);
}

void XSettingsWatch::followManager() {
  xcb_connection_t* raw = connection_.raw();
  // With the server grabbed, the owner cannot go between being found and being followed.
  xcb_grab_server(raw);
  manager_ = connection_.selectionOwner(selection_);
  if (manager_ != XCB_WINDOW_NONE) {
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(raw, manager_, XCB_CW_EVENT_MASK, &events);
  }
  xcb_ungrab_server(raw);
  connection_.flush();
  read();
}

void XSettingsWatch::read() {
  const auto bytes =
      manager_ == XCB_WINDOW_NONE ? std::nullopt : readBytes(connection_, manager_, property_, property_);
  texts_ = bytes ? parseXSettings(*bytes).value_or(std::map<std::string, std::string>())
                 : std::map<std::string, std::string>();
}

}  // namespace roomlattice::platform::x11
