#include "platform/x11/statusitem/FloatingArea.h"

#include "platform/x11/connection/X11Screens.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

QScreen* usableScreen() {
  QScreen* screen = QGuiApplication::primaryScreen();
  return screen == nullptr || screen->geometry().isEmpty() ? nullptr : screen;
}

/// The part of a screen in points that lies inside of one in pixels.
QRect inPoints(const QRect& part, const QScreen& screen) {
  const double scale = screen.devicePixelRatio();
  const QPoint corner = screen.geometry().topLeft();
  const auto up = [&](int pixels) { return static_cast<int>(std::ceil(pixels / scale)); };
  const auto down = [&](int pixels) { return static_cast<int>(std::floor(pixels / scale)); };
  const QPoint first(up(part.left() - corner.x()), up(part.top() - corner.y()));
  const QPoint end(down(part.left() + part.width() - corner.x()), down(part.top() + part.height() - corner.y()));
  return {corner + first, QSize(end.x() - first.x(), end.y() - first.y())};
}

/// Whether there is one on the way from an edge of `screen`, its top or its bottom, to that of the root window.
bool isScreenBeyond(Edge edge, const QScreen& screen) {
  const QRect own = pixelsOf(screen).toRect();
  return std::ranges::any_of(QGuiApplication::screens(), [&](const QScreen* other) {
    const QRect area = pixelsOf(*other).toRect();
    const bool isInLine = area.left() <= own.right() && area.right() >= own.left();
    return isInLine && (edge == Edge::Top ? area.top() < own.top() : area.bottom() > own.bottom());
  });
}

}  // namespace

FloatingArea::FloatingArea(X11Connection& connection, std::function<void()> changed)
    : workArea_(connection), changedSoon_(std::move(changed)) {
  workAreaChanges_ = workArea_.observe([this] { changedSoon_.start(); });
  for (QScreen* screen : QGuiApplication::screens()) {
    follow(screen);
  }
  QObject::connect(qGuiApp, &QGuiApplication::screenAdded, &context_, [this](QScreen* screen) {
    follow(screen);
    changedSoon_.start();
  });
  QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, &context_, [this] { changedSoon_.start(); });
  QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, &context_, [this] { changedSoon_.start(); });
}

std::optional<QRect> FloatingArea::screen() const {
  const QScreen* screen = usableScreen();
  return screen == nullptr ? std::nullopt : std::optional(screen->geometry());
}

std::optional<QRect> FloatingArea::freeFor(xcb_window_t window, EdgeUse use) const {
  const QScreen* screen = usableScreen();
  if (screen == nullptr) {
    return std::nullopt;
  }
  const QRect pixels = pixelsOf(*screen).toRect();
  const bool kept = use == EdgeUse::KeptFree;
  return inPoints(kept ? workArea_.leftByOthersThan(window, pixels) : workArea_.freePartOf(pixels), *screen);
}

std::optional<Strut> FloatingArea::strutFor(Edge edge, const QRect& frame) const {
  const QScreen* screen = usableScreen();
  const bool isAtTop = edge == Edge::Top;
  if (screen == nullptr || !(isAtTop || edge == Edge::Bottom) || isScreenBeyond(edge, *screen)) {
    return std::nullopt;
  }
  const QRect pixels = pixelsOf(*screen).toRect();
  const auto pixelsDownTo = [&](int y) {
    return pixels.top() + static_cast<int>(std::lround((y - pixels.top()) * screen->devicePixelRatio()));
  };
  const int depth =
      isAtTop ? pixelsDownTo(frame.top() + frame.height()) : workArea_.rootSize().height() - pixelsDownTo(frame.top());
  return Strut{.edge = isAtTop ? Strut::Edge::Top : Strut::Edge::Bottom,
               .depth = static_cast<std::uint32_t>(depth),
               .startX = static_cast<std::uint32_t>(pixels.left()),
               .endX = static_cast<std::uint32_t>(pixels.right())};
}

bool FloatingArea::meets(const QRect& pixels) const {
  const QScreen* screen = usableScreen();
  return screen != nullptr && pixelsOf(*screen).toRect().intersects(pixels);
}

void FloatingArea::follow(QScreen* screen) {
  QObject::connect(screen, &QScreen::geometryChanged, &context_, [this] { changedSoon_.start(); });
}

}  // namespace roomlattice::platform::x11
