#include "platform/x11/statusitem/X11StatusItem.h"

#include "platform/x11/drawing/Text.h"
#include "platform/x11/statusitem/StatusItemDrawing.h"

#include <QEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <cmath>

namespace roomlattice::platform::x11 {
namespace {

constexpr Qt::WindowFlags itemWindowFlags = Qt::Window | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus |
                                            Qt::WindowStaysOnTopHint | Qt::NoDropShadowWindowHint;

/// A widget has to be made translucent before it gets its X window.
QWidget& translucent(QWidget& widget) {
  widget.setAttribute(Qt::WA_TranslucentBackground);
  return widget;
}

StatusBarColors barColors(std::optional<Appearance> appearance, bool blended) {
  const int alpha = blended ? 217 : 255;
  if (appearance == Appearance::Dark) {
    return {QColor(38, 38, 41, alpha), QColor(255, 255, 255)};
  }
  return {QColor(246, 246, 247, alpha), QColor(28, 28, 30)};
}

}  // namespace

X11StatusItem::X11StatusItem(X11Connection& connection, WindowManagerWatch& windowManager, X11Appearance& appearance,
                             CompositorWatch& compositor, const StatusItemLength& length)
    : QWidget(nullptr, itemWindowFlags),
      connection_(connection),
      windowManager_(windowManager),
      appearance_(appearance),
      compositor_(compositor),
      length_(length),
      native_(connection, translucent(*this)) {
  setAttribute(Qt::WA_ShowWithoutActivating);
  setWindowTitle(QStringLiteral("Roomlattice"));
  compositorChanges_ = compositor_.observe([this] { update(); });
  followScreens();
  layOutSoon_.start();
}

void X11StatusItem::setLength(const StatusItemLength& length) {
  if (length != length_) {
    length_ = length;
    layOutSoon_.start();
  }
}

void X11StatusItem::setMenu(Menu* menu) {
  session_.reset();
  menu_ = menu;
}

void X11StatusItem::mousePressEvent(QMouseEvent* event) {
  event->accept();
  if (itemRect().contains(event->position())) {
    // The event knows where the window is. The toolkit's own account of it may be out of date while a window manager
    // moves the window.
    openMenuAt(event->globalPosition() - event->position());
  }
}

void X11StatusItem::openMenu() {
  openMenuAt(mapToGlobal(QPointF()));
}

void X11StatusItem::openMenuAt(QPointF origin) {
  if (menu_ != nullptr && session_ == nullptr) {
    const QPoint corner = (origin + itemRect().bottomRight()).toPoint();
    session_ = std::make_unique<MenuSession>(*menu_, corner, *this, [this] { session_.reset(); });
  }
}

void X11StatusItem::setContent(const StatusButtonContent& content) {
  if (content != content_) {
    content_ = content;
    setAccessibleName(singleLine(content.title.text).trimmed());
    update();
    layOutSoon_.start();
  }
}

void X11StatusItem::paintEvent(QPaintEvent*) {
  const StatusBarColors colors = barColors(appearance_.current(), compositor_.isCompositing());
  QPainter painter(this);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  painter.fillRect(rect(), colors.backdrop);
  drawStatusItem(painter, itemRect(), content_, colors);
}

void X11StatusItem::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) {
    update();
  } else if (event->type() == QEvent::FontChange) {
    update();
    layOutSoon_.start();
  }
  QWidget::changeEvent(event);
}

void X11StatusItem::followScreens() {
  const auto moved = [this] { layOutSoon_.start(); };
  const auto follow = [this, moved](QScreen* screen) {
    QObject::connect(screen, &QScreen::geometryChanged, this, moved);
  };
  for (QScreen* screen : QGuiApplication::screens()) {
    follow(screen);
  }
  QObject::connect(qGuiApp, &QGuiApplication::screenAdded, this, follow);
  QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, moved);
}

void X11StatusItem::layOut() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  if (screen == nullptr || screen->geometry().isEmpty()) {
    return;
  }
  const QRect area = screen->geometry();
  itemWidth_ = statusItemWidth(content_, length_, area.width());
  const int width = windowManager_.traits().makesStripsOfDocks ? area.width() : static_cast<int>(std::ceil(itemWidth_));
  setGeometry(area.x() + area.width() - width, area.y(), width, static_cast<int>(statusBarHeight));
  // The item may have moved within a window that stays as it is.
  update();
  if (!isVisible()) {
    appear();
  }
  reserveScreenEdge();
  native_.flush();
}

void X11StatusItem::appear() {
  const xcb_ewmh_connection_t& atoms = *connection_.ewmh();
  native_.writeHints({.types = {atoms._NET_WM_WINDOW_TYPE_DOCK},
                      .states = {atoms._NET_WM_STATE_SKIP_TASKBAR, atoms._NET_WM_STATE_SKIP_PAGER,
                                 atoms._NET_WM_STATE_STICKY, atoms._NET_WM_STATE_ABOVE},
                      .desktop = allDesktops});
  show();
}

void X11StatusItem::reserveScreenEdge() {
  if (qEnvironmentVariableIntValue("ROOMLATTICE_RESERVE_SCREEN_EDGE") != 1) {
    return;
  }
  // In pixels of the root window; a screen keeps the place of its corner in pixels, whatever its scale.
  const QRect area = screen()->geometry();
  const double scale = screen()->devicePixelRatio();
  const auto startX = static_cast<std::uint32_t>(area.x());
  const auto height = static_cast<std::uint32_t>(area.y() + std::lround(statusBarHeight * scale));
  native_.setStrut(height, startX, startX + static_cast<std::uint32_t>(std::lround(area.width() * scale)) - 1);
}

QRectF X11StatusItem::itemRect() const {
  return {width() - itemWidth_, 0.0, itemWidth_, static_cast<double>(height())};
}

}  // namespace roomlattice::platform::x11
