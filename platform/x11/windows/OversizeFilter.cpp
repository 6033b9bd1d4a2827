#include "platform/x11/windows/OversizeFilter.h"

#include <QByteArray>
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <xcb/xcb.h>

namespace roomlattice::platform::x11 {
namespace {

/// In pixels. Windows may well be somewhat larger than the desktop, and screens may just be about to grow.
double largestSide() {
  constexpr double least = 4096;
  const QScreen* screen = QGuiApplication::primaryScreen();
  if (screen == nullptr) {
    return least;
  }
  const QSizeF desktop = QSizeF(screen->virtualSize()) * screen->devicePixelRatio();
  return std::max(least, 2 * std::max(desktop.width(), desktop.height()));
}

}  // namespace

bool OversizeFilter::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
  constexpr int typeMask = 0x7f;
  const auto* event = static_cast<const xcb_generic_event_t*>(message);
  if (type != "xcb_generic_event_t" || (event->response_type & typeMask) != XCB_CONFIGURE_NOTIFY) {
    return false;
  }
  const auto* notify = reinterpret_cast<const xcb_configure_notify_event_t*>(event);
  return std::max(notify->width, notify->height) > largestSide();
}

}  // namespace roomlattice::platform::x11
