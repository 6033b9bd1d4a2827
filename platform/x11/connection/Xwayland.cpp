#include "platform/x11/connection/Xwayland.h"

#include "platform/x11/connection/X11Screens.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <array>
#include <string_view>

namespace roomlattice::platform::x11 {
namespace {

/// Over windows of Wayland clients the pointer is over no window for the server, and stays where it was seen last.
bool knowsPointer(const X11Connection& connection) {
  const auto pointer = connection.queryPointer();
  return pointer != nullptr && pointer->child != XCB_WINDOW_NONE;
}

// The scales that compositors offer.
constexpr std::array outputScales{1.0, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0};

/// Panels of Wayland count in pixels of their output. Where the compositor enlarges the windows of X clients, these are
/// smaller than the server's, and nobody tells how much.
QPoint fromPanel(QPoint told) {
  for (const double scale : outputScales) {
    const QPointF pixel = QPointF(told) / scale;
    if (const QScreen* screen = screenAtPixel(pixel)) {
      return fromPixel(pixel, *screen).toPoint();
    }
  }
  return QCursor::pos();
}

}  // namespace

bool isXwayland(X11Connection& connection) {
  // The extension says so by its presence since Xwayland 23.1; before, the names of the outputs did.
  constexpr std::string_view extension = "XWAYLAND";
  const auto cookie = xcb_query_extension(connection.raw(), extension.size(), extension.data());
  const auto reply = replyTo(connection.raw(), cookie, xcb_query_extension_reply);
  const auto isVirtual = [](const QScreen* screen) { return screen->name().startsWith(QLatin1String("XWAYLAND")); };
  return (reply != nullptr && reply->present != 0) || std::ranges::any_of(QGuiApplication::screens(), isVirtual);
}

QPoint placeOfClick(X11Connection& connection, QPoint told) {
  return isXwayland(connection) && !knowsPointer(connection) ? fromPanel(told) : QCursor::pos();
}

}  // namespace roomlattice::platform::x11
