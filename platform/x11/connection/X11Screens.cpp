#include "platform/x11/connection/X11Screens.h"

#include "platform/x11/connection/Properties.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

namespace roomlattice::platform::x11 {
namespace {

/// Between two windows that are active, none may be for a moment.
constexpr std::chrono::milliseconds handoverTime(50);

/// The screens there really are: started without any output, Qt has one of no size.
std::vector<QScreen*> realScreens() {
  QList<QScreen*> screens = QGuiApplication::screens();
  screens.removeIf([](const QScreen* screen) { return screen->geometry().isEmpty(); });
  return {screens.begin(), screens.end()};
}

std::vector<QRect> geometries() {
  std::vector<QRect> geometries;
  for (const QScreen* screen : realScreens()) {
    geometries.push_back(screen->geometry());
  }
  return geometries;
}

}  // namespace

QRectF pixelsOf(const QScreen& screen) {
  const QRectF geometry = screen.geometry();
  return {geometry.topLeft(), geometry.size() * screen.devicePixelRatio()};
}

QScreen* screenAtPixel(QPointF pixel) {
  const QList<QScreen*> screens = QGuiApplication::screens();
  const auto found = std::ranges::find_if(screens, [&](const QScreen* one) { return pixelsOf(*one).contains(pixel); });
  return found == screens.end() ? nullptr : *found;
}

QPointF fromPixel(QPointF pixel, const QScreen& screen) {
  const QPointF corner = screen.geometry().topLeft();
  return corner + (pixel - corner) / screen.devicePixelRatio();
}

X11Screens::X11Screens(X11Connection& connection, NotificationCenter& defaultCenter)
    : connection_(connection), defaultCenter_(defaultCenter) {
  for (QScreen* screen : QGuiApplication::screens()) {
    follow(screen);
  }
  QObject::connect(qGuiApp, &QGuiApplication::screenAdded, &context_, [this](QScreen* screen) {
    follow(screen);
    changed();
  });
  QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, &context_, [this] { changed(); });
  QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, &context_, [this] { changed(); });
  followActiveWindow();
  posted_ = geometries();
  postedMain_ = mainScreen();
}

std::vector<Screen> X11Screens::screens() const {
  std::vector<Screen> screens;
  // Qt lists the primary screen first.
  for (const QScreen* screen : realScreens()) {
    screens.push_back({frameOf(*screen)});
  }
  if (screens.empty()) {
    screens.push_back({fromQt(QRectF(primaryGeometry()))});
  }
  return screens;
}

std::optional<Screen> X11Screens::mainScreen() const {
  const QScreen* screen = screenOfActiveWindow();
  if (screen == nullptr) {
    screen = screenOfPointer();
  }
  if (screen == nullptr) {
    screen = QGuiApplication::primaryScreen();
  }
  return screen == nullptr || screen->geometry().isEmpty() ? screens().front() : Screen{frameOf(*screen)};
}

/// The root window's while there is no output: it has a size then, too.
QRect X11Screens::primaryGeometry() const {
  const QScreen* primary = QGuiApplication::primaryScreen();
  if (primary != nullptr && !primary->geometry().isEmpty()) {
    return primary->geometry();
  }
  const auto root =
      replyTo(connection_.raw(), xcb_get_geometry(connection_.raw(), connection_.root()), xcb_get_geometry_reply);
  return root == nullptr ? QRect() : QRect(0, 0, root->width, root->height);
}

Rect X11Screens::frameOf(const QScreen& screen) const {
  return fromQt(QRectF(screen.geometry()));
}

Point X11Screens::fromQt(QPointF point) const {
  const QRectF primary = primaryGeometry();
  return {point.x() - primary.left(), primary.bottom() - point.y()};
}

Rect X11Screens::fromQt(const QRectF& rect) const {
  return {fromQt(rect.bottomLeft()), {rect.width(), rect.height()}};
}

QPointF X11Screens::toQt(Point point) const {
  const QRectF primary = primaryGeometry();
  return {point.x + primary.left(), primary.bottom() - point.y};
}

QRectF X11Screens::toQt(const Rect& rect) const {
  return {toQt(Point{rect.minX(), rect.maxY()}), QSizeF(rect.size.width, rect.size.height)};
}

Point X11Screens::fromPixel(QPointF pixel) const {
  const QScreen* screen = screenAtPixel(pixel);
  if (screen == nullptr) {
    screen = QGuiApplication::primaryScreen();
  }
  return screen == nullptr ? Point{} : fromQt(x11::fromPixel(pixel, *screen));
}

void X11Screens::follow(QScreen* screen) {
  QObject::connect(screen, &QScreen::geometryChanged, &context_, [this] { changed(); });
}

void X11Screens::followActiveWindow() {
  propertyEvents_ = connection_.observe<xcb_property_notify_event_t>([this](const auto& notify) {
    const xcb_ewmh_connection_t& ewmh = *connection_.ewmh();
    const bool leads = notify.atom == ewmh._NET_ACTIVE_WINDOW || notify.atom == ewmh._NET_CURRENT_DESKTOP;
    if (leads && notify.window == connection_.root() && QGuiApplication::screens().size() > 1) {
      coalescing_.start(handoverTime);
    }
  });
  connection_.selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE);
}

void X11Screens::changed() {
  coalescing_.start(std::chrono::milliseconds(0));
}

void X11Screens::postIfChanged() {
  std::vector<QRect> now = geometries();
  const std::optional<Screen> nowMain = mainScreen();
  if (now != posted_ || nowMain != postedMain_) {
    posted_ = std::move(now);
    postedMain_ = nowMain;
    defaultCenter_.post(notification::didChangeScreenParameters);
  }
}

QScreen* X11Screens::screenOfActiveWindow() const {
  if (QGuiApplication::screens().size() < 2) {
    return nullptr;  // there is but one answer, and no need to ask the server
  }
  const xcb_window_t root = connection_.root();
  const auto window = readNumber(connection_, root, connection_.ewmh()->_NET_ACTIVE_WINDOW, XCB_ATOM_WINDOW);
  if (!window || *window == XCB_WINDOW_NONE) {
    return nullptr;
  }
  xcb_connection_t* raw = connection_.raw();
  const auto geometryCookie = xcb_get_geometry(raw, *window);
  const auto placeCookie = xcb_translate_coordinates(raw, *window, root, 0, 0);
  const auto geometry = replyTo(raw, geometryCookie, xcb_get_geometry_reply);
  const auto place = replyTo(raw, placeCookie, xcb_translate_coordinates_reply);
  if (geometry == nullptr || place == nullptr) {
    return nullptr;
  }
  return screenAtPixel({place->dst_x + geometry->width / 2.0, place->dst_y + geometry->height / 2.0});
}

QScreen* X11Screens::screenOfPointer() const {
  const auto pointer = connection_.queryPointer();
  return pointer == nullptr || pointer->same_screen == 0 ? nullptr
                                                         : screenAtPixel(QPointF(pointer->root_x, pointer->root_y));
}

}  // namespace roomlattice::platform::x11
