#include "platform/x11/input/X11KeyEvent.h"

namespace roomlattice::platform::x11 {
namespace {

// Above all virtual key codes that have a name. X key codes take eight bits.
constexpr std::uint16_t otherKeys = 0x100;

}  // namespace

std::uint16_t X11KeyEvent::code() const {
  switch (event_.key()) {
    case Qt::Key_Return:
      return keyCode::returnKey;
    case Qt::Key_Enter:
      return keyCode::keypadEnter;
    case Qt::Key_Escape:
      return keyCode::escape;
    default:
      return static_cast<std::uint16_t>(otherKeys + (event_.nativeScanCode() & 0xFF));
  }
}

}  // namespace roomlattice::platform::x11
