#include "platform/x11/connection/Xwayland.h"

#include <QCursor>
#include <QGuiApplication>
#include <QRectF>
#include <QScreen>
#include <algorithm>
#include <string_view>

namespace roomlattice::platform::x11 {
namespace {

/// Over windows of Wayland clients the pointer is over no window for the server, and stays where it was seen last.
bool knowsPointer(const X11Connection& connection) {
  const auto pointer = connection.queryPointer();
  return pointer != nullptr && pointer->child != XCB_WINDOW_NONE;
}

/// Where the compositor has the screen. The toolkit scales the sizes of screens and not their places.
QRectF placeInCompositor(const QScreen& screen) {
  return {QPointF(screen.geometry().topLeft()) / screen.devicePixelRatio(), QSizeF(screen.geometry().size())};
}

QPoint fromCompositor(QPoint place) {
  for (const QScreen* screen : QGuiApplication::screens()) {
    if (const QRectF area = placeInCompositor(*screen); area.contains(place)) {
      return screen->geometry().topLeft() + (QPointF(place) - area.topLeft()).toPoint();
    }
  }
  return place;
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
  return isXwayland(connection) && !knowsPointer(connection) ? fromCompositor(told) : QCursor::pos();
}

}  // namespace roomlattice::platform::x11
