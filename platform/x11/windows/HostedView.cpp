#include "platform/x11/windows/HostedView.h"

#include "platform/x11/drawing/QtValues.h"
#include "platform/x11/drawing/ToolTips.h"

#include <QEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWidget>
#include <cmath>

namespace roomlattice::platform::x11 {

class HostedView::Widget final : public QWidget {
 public:
  Widget(HostedView& host, QWidget& parent) : QWidget(&parent), host_(&host) { setMouseTracking(true); }

  void leaveHost() {
    host_ = nullptr;
    deleteLater();
  }

  QSize sizeHint() const override { return host_ == nullptr ? size() : host_->size(); }
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  bool event(QEvent* event) override {
    if (event->type() != QEvent::ToolTip || host_ == nullptr) {
      return QWidget::event(event);
    }
    answerToolTip(*this, static_cast<const QHelpEvent&>(*event), host_->drawing_.cutText());
    return true;
  }

  void paintEvent(QPaintEvent*) override {
    if (host_ != nullptr) {
      QPainter painter(this);
      host_->drawing_.paint(painter);
    }
  }

  void changeEvent(QEvent* event) override {
    if (event->type() == QEvent::PaletteChange) {
      update();
    }
    QWidget::changeEvent(event);
  }

  void enterEvent(QEnterEvent*) override { hover(Hover::Entered); }
  void leaveEvent(QEvent*) override { hover(Hover::Left); }

  void mousePressEvent(QMouseEvent* event) override {
    // The release is wanted here, and a menu around the view is not to take the press for its own.
    event->accept();
  }

  void mouseReleaseEvent(QMouseEvent* event) override {
    event->accept();
    if (host_ != nullptr) {
      host_->mouseReleased(*event);
    }
  }

 private:
  void hover(Hover hover) {
    if (host_ != nullptr) {
      host_->onHover(hover);
    }
  }

  HostedView* host_;
};

HostedView::HostedView(View& view, QWidget& parent)
    : onHover([&view](Hover hover) { hover == Hover::Entered ? view.mouseEntered() : view.mouseExited(); }),
      view_(view),
      widget_(new Widget(*this, parent)),
      drawing_(view, *widget_) {
  widget_->resize(size());
  widget_->setAccessibleName(drawing_.visibleText());
  view_.setHost(this);
}

HostedView::~HostedView() {
  view_.setHost(nullptr);
  if (widget_ != nullptr) {
    widget_->leaveHost();
  }
}

QWidget& HostedView::widget() const {
  return *widget_;
}

QSize HostedView::size() const {
  const Size size = view_.frame().size;
  return {static_cast<int>(std::ceil(size.width)), static_cast<int>(std::ceil(size.height))};
}

void HostedView::viewChanged() {
  // Before its elements: one that appears has the toolkit look which widget is below the pointer now.
  widget_->resize(size());
  if (drawing_.update()) {
    widget_->setAccessibleName(drawing_.visibleText());
    widget_->update();
    onChange();
  }
}

X11TextField* HostedView::textField() {
  return drawing_.textField();
}

void HostedView::cancelMenuTracking() {
  const std::function<void()> cancel = onCancelMenuTracking;
  cancel();
}

void HostedView::mouseReleased(const QMouseEvent& event) {
  // The pointer is on a pixel, which is told by its corner: that of the topmost line is on the edge of the view.
  const double half = 0.5 / widget_->devicePixelRatioF();
  const Point point = fromQt(event.position() + QPointF(half, half), view_.frame().size.height);
  if (event.button() == Qt::LeftButton && view_.hitTest(point) == HitTarget::View) {
    view_.mouseUp(point);
  }
}

}  // namespace roomlattice::platform::x11
