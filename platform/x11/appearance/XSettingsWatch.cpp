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
  announcements_ = connection.observe(XCB_CLIENT_MESSAGE, [this](const xcb_generic_event_t& event) {
    const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
    if (message.type == connection_.ewmh()->MANAGER && message.format == 32 && message.data.data32[1] == selection_) {
      followManager();
      changed_();
    }
  });
  propertyEvents_ = connection.observe(XCB_PROPERTY_NOTIFY, [this](const xcb_generic_event_t& event) {
    const auto& notify = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (notify.window == manager_ && notify.atom == property_) {
      read();
      changed_();
    }
  });
  destroyEvents_ = connection.observe(XCB_DESTROY_NOTIFY, [this](const xcb_generic_event_t& event) {
    if (reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == manager_) {
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
  const auto cookie = xcb_get_selection_owner(raw, selection_);
  const XcbPointer<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(raw, cookie, nullptr));
  manager_ = reply == nullptr ? xcb_window_t{XCB_WINDOW_NONE} : reply->owner;
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
