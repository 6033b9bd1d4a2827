#include "tests/x11/session/ForeignNames.h"

#include "platform/x11/connection/Properties.h"
#include "tests/linux/session/Wait.h"

namespace roomlattice::tests {

ForeignNames::Texts ForeignNames::all() {
  return platform::x11::textsOf(property());
}

bool ForeignNames::become(const Texts& names) {
  return waitFor([&] {
    Texts first = all();
    first.resize(names.size());
    return first == names;
  });
}

bool ForeignNames::set(const Texts& names) {
  if (windowManager_ != WindowManagerKind::KWin) {
    setProperty(platform::x11::bytesOf(names));
    return become(names);
  }
  for (std::size_t index = 0; index < names.size(); ++index) {
    session_.run({"dbus-send", "--print-reply", "--session", "--dest=org.kde.KWin", "/VirtualDesktopManager",
                  "org.kde.KWin.VirtualDesktopManager.setDesktopName",
                  "string:test-desktop-" + std::to_string(index + 1), "string:" + names[index]});
  }
  return become(names);
}

void ForeignNames::setProperty(const std::string& bytes) {
  setProperty(bytes, connection_->ewmh()->UTF8_STRING);
}

void ForeignNames::setProperty(const std::string& bytes, xcb_atom_t type) {
  xcb_change_property(connection_->raw(), XCB_PROP_MODE_REPLACE, connection_->root(),
                      connection_->ewmh()->_NET_DESKTOP_NAMES, type, 8, static_cast<std::uint32_t>(bytes.size()),
                      bytes.data());
  connection_->waitForServer();
}

std::string ForeignNames::property() {
  const xcb_ewmh_connection_t& ewmh = *connection_->ewmh();
  return readBytes(*connection_, connection_->root(), ewmh._NET_DESKTOP_NAMES, ewmh.UTF8_STRING).value_or("");
}

}  // namespace roomlattice::tests
