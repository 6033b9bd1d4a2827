#include "platform/x11/windows/OverlaySurface.h"

#include <QCloseEvent>
#include <QMetaObject>
#include <QWindow>
#include <utility>

namespace roomlattice::platform::x11 {
namespace {

constexpr Qt::WindowFlags surfaceHints = Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus |
                                         Qt::WindowTransparentForInput | Qt::NoDropShadowWindowHint |
                                         Qt::WindowStaysOnTopHint;
constexpr Qt::WindowFlags surfaceFlags = Qt::Window | surfaceHints;

// A window manager that insists on another place gets its way after so many corrections.
constexpr int maximumPlaceCorrections = 3;

}  // namespace

OverlaySurface::OverlaySurface(Depth depth, std::function<void()> draw)
    : QWidget(nullptr, surfaceFlags), drawSoon_(std::move(draw)) {
  setAttribute(Qt::WA_PaintOnScreen);
  setAttribute(Qt::WA_NoSystemBackground);
  setAttribute(Qt::WA_TranslucentBackground, depth == Depth::WithAlpha);
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  setWindowTitle(QStringLiteral("Roomlattice"));
}

bool OverlaySurface::place(const QRect& frame) {
  if (frame == wanted_) {
    return false;
  }
  wanted_ = frame;
  corrections_ = maximumPlaceCorrections;
  setGeometry(frame);
  return true;
}

void OverlaySurface::appear() {
  corrections_ = maximumPlaceCorrections;
  // The toolkit closes all menus when an ordinary window appears, but not when a tool does. So it takes the widget for
  // a tool for the moment; the window system is not told.
  overrideWindowFlags(Qt::Tool | surfaceHints);
  show();
  overrideWindowFlags(surfaceFlags);
}

bool OverlaySurface::event(QEvent* event) {
  // The toolkit does not paint a window that it does not know to be on the screen.
  if (event->type() == QEvent::UpdateRequest) {
    drawSoon();
  }
  return QWidget::event(event);
}

void OverlaySurface::closeEvent(QCloseEvent* event) {
  event->ignore();
}

void OverlaySurface::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  verify();
}

void OverlaySurface::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  verify();
}

bool OverlaySurface::isInPlace() const {
  // Hearing late of the window's former place, the toolkit may take that for the window's and not for the widget's.
  return geometry() == wanted_ && windowHandle()->geometry() == wanted_;
}

void OverlaySurface::verify() {
  if (!isVisible() || isInPlace() || corrections_ == 0 || verifying_) {
    return;
  }
  // A window that was moved and resized reports it in two events.
  verifying_ = true;
  QMetaObject::invokeMethod(
      this,
      [this] {
        verifying_ = false;
        if (isVisible() && !isInPlace()) {
          --corrections_;
          windowHandle()->setGeometry(wanted_);
          setGeometry(wanted_);
        }
      },
      Qt::QueuedConnection);
}

}  // namespace roomlattice::platform::x11
