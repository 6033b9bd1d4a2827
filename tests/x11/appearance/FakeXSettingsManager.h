#pragma once

#include "platform/x11/connection/X11Connection.h"
#include "tests/x11/appearance/XSettingsText.h"

#include <string>

namespace roomlattice::tests {

/// An XSETTINGS manager on the display of the environment; it is gone with this object.
class FakeXSettingsManager {
 public:
  explicit FakeXSettingsManager(const std::string& bytes) {
    window_ = xcb_generate_id(raw());
    xcb_create_window(raw(), XCB_COPY_FROM_PARENT, window_, connection_->root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    publish(bytes);
    const xcb_atom_t selection = connection_->atom("_XSETTINGS_S0");
    xcb_set_selection_owner(raw(), window_, selection, XCB_CURRENT_TIME);
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = connection_->root();
    message.type = connection_->atom("MANAGER");
    message.data.data32[1] = selection;
    message.data.data32[2] = window_;
    xcb_send_event(raw(), 0, connection_->root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
    connection_->flush();
  }

  void publish(const std::string& bytes) {
    const xcb_atom_t property = connection_->atom("_XSETTINGS_SETTINGS");
    xcb_change_property(raw(), XCB_PROP_MODE_REPLACE, window_, property, property, 8,
                        static_cast<std::uint32_t>(bytes.size()), bytes.data());
    connection_->flush();
  }

  static std::string theme(const std::string& name) { return XSettingsText().text("Net/ThemeName", name).bytes(); }

 private:
  xcb_connection_t* raw() const { return connection_->raw(); }

  std::unique_ptr<platform::x11::X11Connection> connection_ = platform::x11::X11Connection::open();
  xcb_window_t window_ = XCB_WINDOW_NONE;
};

}  // namespace roomlattice::tests
