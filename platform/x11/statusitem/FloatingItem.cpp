#include "platform/x11/statusitem/FloatingItem.h"

#include "platform/x11/drawing/RoundedShape.h"
#include "platform/x11/drawing/Text.h"
#include "platform/x11/drawing/ToolTips.h"
#include "platform/x11/statusitem/StatusItemDrawing.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <chrono>
#include <cmath>
#include <utility>
#include <variant>

namespace roomlattice::platform::x11 {
namespace {

constexpr Qt::WindowFlags itemWindowFlags = Qt::Window | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus |
                                            Qt::WindowStaysOnTopHint | Qt::NoDropShadowWindowHint;

// Qt: what a wheel turns in one step.
constexpr int wheelStep = 120;

// A window manager that has not given the item its new size by then will not.
constexpr std::chrono::milliseconds resizeLimit(30);

// To be placed anew takes most of the time in which a switch is shown. A title that fills that much of the item leaves
// it as it is, so that it soon has one width for all names of about one length.
constexpr double filledPart = 0.8;

/// Flags and translucency have to be there before the widget gets its X window.
QWidget& prepared(QWidget& widget) {
  widget.setWindowFlags(itemWindowFlags);
  widget.setAttribute(Qt::WA_TranslucentBackground);
  widget.setAttribute(Qt::WA_PaintOnScreen);
  return widget;
}

StatusBarColors barColors(std::optional<Appearance> appearance, bool blended) {
  const int alpha = blended ? 230 : 255;
  if (appearance == Appearance::Dark) {
    return {QColor(38, 38, 41, alpha), QColor(255, 255, 255)};
  }
  return {QColor(246, 246, 247, alpha), QColor(28, 28, 30)};
}

}  // namespace

FloatingItem::FloatingItem(StatusItemEnvironment& environment, ItemSettings& settings, ItemHandlers handlers)
    : environment_(environment),
      settings_(settings),
      handlers_(std::move(handlers)),
      place_(settings.floatingPlace()),
      edgeUse_(settings.edgeUse()),
      floatingArea_(environment.connection, [this] { layOut(); }),
      native_(environment.connection, prepared(*this)) {
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_AlwaysShowToolTips);
  setFocusPolicy(Qt::NoFocus);
  setWindowTitle(QStringLiteral("Roomlattice"));
  QObject::connect(this, &QPushButton::clicked, this, [this] { handlers_.openMenu(anchor()); });
  compositorChanges_ = environment.compositor.observe([this] {
    applyShape();
    native_.flush();
    update();
  });
  windowManagerChanges_ = environment.windowManager.observe([this] { layOutSoon_.start(); });
  layOutSoon_.start();
}

void FloatingItem::setContent(const StatusButtonContent& content, const StatusItemLength& length) {
  content_ = content;
  length_ = length;
  const QString title = singleLine(content.title.text).trimmed();
  setAccessibleName(title.isEmpty() ? windowTitle() : title);
  setToolTip(toolTipSaying(title));
  if (!isVisible()) {
    return;
  }
  const int width = frame_.width();
  place();
  if (frame_.width() <= width) {
    draw();
  } else {
    // The part that comes in addition is to be drawn when it is there, and with it all the rest, once. It is asked for
    // before anything of labels is.
    native_.flush();
    drawLater_.start(resizeLimit);
  }
}

void FloatingItem::settingsChanged() {
  place_ = settings_.floatingPlace();
  edgeUse_ = settings_.edgeUse();
  layOutSoon_.start();
}

void FloatingItem::mousePressEvent(QMouseEvent* event) {
  event->accept();
  if (!itemRect().contains(event->position().toPoint())) {
    return;
  }
  if (event->button() == Qt::RightButton) {
    handlers_.openOptions(event->globalPosition().toPoint());
  } else if (event->button() == Qt::LeftButton) {
    press_ = Press{.onScreen = event->globalPosition(), .inWindow = event->position()};
  }
}

void FloatingItem::mouseMoveEvent(QMouseEvent* event) {
  if (!press_ || isStrip()) {
    return;
  }
  const QPointF way = event->globalPosition() - press_->onScreen;
  press_->isDrag = press_->isDrag || way.manhattanLength() >= QApplication::startDragDistance();
  if (press_->isDrag) {
    const QPointF corner = event->globalPosition() - press_->inWindow;
    place_ = nearestPlace(QRectF(corner, QSizeF(size())).center().toPoint(), area_, size());
    place();
    native_.flush();
  }
}

void FloatingItem::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !press_) {
    return;
  }
  const Press press = *std::exchange(press_, std::nullopt);
  if (press.isDrag) {
    settings_.setFloatingPlace(place_);
    reserveEdge();
    native_.flush();
  } else if (itemRect().contains(event->position().toPoint())) {
    // The event knows where the window is. The toolkit's own account of it may be out of date while a window manager
    // moves the window.
    const QPoint origin = (event->globalPosition() - event->position()).toPoint();
    handlers_.openMenu(itemRect().translated(origin));
  }
}

void FloatingItem::wheelEvent(QWheelEvent* event) {
  event->accept();
  const QPoint angle = event->angleDelta();
  wheelAngle_ += std::abs(angle.y()) >= std::abs(angle.x()) ? angle.y() : angle.x();
  for (; std::abs(wheelAngle_) >= wheelStep; wheelAngle_ += wheelAngle_ > 0 ? -wheelStep : wheelStep) {
    handlers_.step(wheelAngle_ > 0 ? Direction::Left : Direction::Right);
  }
}

void FloatingItem::closeEvent(QCloseEvent* event) {
  // A window manager may be told to close any window. This one is the way to quit.
  event->ignore();
}

void FloatingItem::paintEvent(QPaintEvent*) {
  draw();
}

void FloatingItem::draw() {
  drawLater_.stop();
  const StatusBarColors colors = barColors(environment_.appearance.current(), environment_.compositor.isCompositing());
  const double scale = devicePixelRatioF();
  const QImage& item = pictures_.picture({content_, colors, QSize(itemWidth_, frame_.height()), scale});
  onScreen_.put(isStrip() ? strip(item, colors.backdrop) : item, QPoint());
  native_.flush();
}

QImage FloatingItem::strip(const QImage& item, const QColor& backdrop) const {
  QImage whole((QSizeF(frame_.size()) * item.devicePixelRatio()).toSize(), item.format());
  whole.setDevicePixelRatio(item.devicePixelRatio());
  whole.fill(backdrop);
  QPainter(&whole).drawImage(itemRect().topLeft(), item);
  return whole;
}

void FloatingItem::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) {
    update();
  } else if (event->type() == QEvent::FontChange) {
    pictures_.clear();
    update();
    layOutSoon_.start();
  }
  QPushButton::changeEvent(event);
}

void FloatingItem::layOut() {
  const std::optional<QRect> area = isStrip() ? floatingArea_.screen() : floatingArea_.freeFor(native_.id(), edgeUse_);
  if (!area) {
    return;
  }
  area_ = *area;
  if (place()) {
    update();
  }
  reserveEdge();
  followFullScreen();
  if (!isWanted()) {
    hide();
  } else if (!isVisible()) {
    appear();
  }
  native_.flush();
}

void FloatingItem::followFullScreen() {
  if (!environment_.windowManager.traits().keepsDocksAboveFullScreen) {
    fullScreen_.reset();
  } else if (!fullScreen_) {
    fullScreen_.emplace(environment_.connection, [this] { layOutSoon_.start(); });
  }
}

bool FloatingItem::isWanted() const {
  return !fullScreen_ || !fullScreen_->area() || !floatingArea_.meets(*fullScreen_->area());
}

bool FloatingItem::place() {
  const int width = wantedWidth();
  const auto height = static_cast<int>(statusBarHeight);
  const bool isOther = std::exchange(itemWidth_, width) != width;
  const QRect frame =
      isStrip() ? QRect(area_.topLeft(), QSize(area_.width(), height)) : frameAt(place_, area_, QSize(width, height));
  if (std::exchange(frame_, frame) != frame) {
    setGeometry(frame);
  }
  applyShape();
  return isOther;
}

int FloatingItem::wantedWidth() {
  const auto width = static_cast<int>(std::ceil(pictures_.width(content_, length_, area_.width())));
  const bool mayStay = std::holds_alternative<VariableLength>(length_) && itemWidth_ <= area_.width();
  return mayStay && width < itemWidth_ && width >= filledPart * itemWidth_ ? itemWidth_ : width;
}

void FloatingItem::appear() {
  const xcb_ewmh_connection_t& atoms = *environment_.connection.ewmh();
  native_.writeHints({.types = {atoms._NET_WM_WINDOW_TYPE_DOCK},
                      .states = {atoms._NET_WM_STATE_SKIP_TASKBAR, atoms._NET_WM_STATE_SKIP_PAGER,
                                 atoms._NET_WM_STATE_STICKY, atoms._NET_WM_STATE_ABOVE},
                      .desktop = allDesktops});
  show();
  native_.flush();
}

void FloatingItem::applyShape() {
  const bool whole = environment_.compositor.isCompositing() || isStrip();
  const double scale = devicePixelRatioF();
  const double radius = whole ? 0.0 : statusItemCornerRadius(content_) * scale;
  const QSize size = whole ? QSize() : (QSizeF(frame_.size()) * scale).toSize();
  const bool sameSize = std::exchange(shapedSize_, size) == size;
  if (std::exchange(shapedRadius_, radius) == radius && sameSize) {
    return;
  }
  whole ? native_.clearBoundingShape() : native_.setBoundingShape(roundedShape(size, radius));
}

void FloatingItem::reserveEdge() {
  const bool isKept = edgeUse_ == EdgeUse::KeptFree && !isStrip();
  const std::optional<Strut> strut = isKept ? floatingArea_.strutFor(place_.edge, frame_) : std::nullopt;
  if (std::exchange(strut_, strut) != strut) {
    native_.setStrut(strut);
  }
}

bool FloatingItem::isStrip() const {
  return environment_.windowManager.traits().makesStripsOfDocks;
}

QRect FloatingItem::anchor() const {
  return itemRect().translated(mapToGlobal(QPoint()));
}

QRect FloatingItem::itemRect() const {
  return {frame_.width() - itemWidth_, 0, itemWidth_, frame_.height()};
}

}  // namespace roomlattice::platform::x11
