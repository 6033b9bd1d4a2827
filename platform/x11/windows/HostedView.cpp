#include "platform/x11/windows/HostedView.h"

#include "platform/x11/drawing/QtValues.h"
#include "platform/x11/drawing/Text.h"
#include "platform/x11/drawing/ToolTips.h"

#include <QEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <utility>
#include <variant>

namespace roomlattice::platform::x11 {
namespace {

/// The first text that is to be seen.
const ViewElement* visibleText(const ViewContent& content) {
  const auto found = std::ranges::find_if(content.elements, [](const ViewElement& element) {
    return std::holds_alternative<TextElement>(element.kind) && !element.hidden;
  });
  return found == content.elements.end() ? nullptr : &*found;
}

QString nameOf(const ViewContent& content) {
  const ViewElement* element = visibleText(content);
  return element == nullptr ? QString() : singleLine(std::get<TextElement>(element->kind).text);
}

}  // namespace

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
    answerToolTip(*this, static_cast<const QHelpEvent&>(*event), host_->cutText());
    return true;
  }

  void paintEvent(QPaintEvent*) override {
    if (host_ != nullptr) {
      QPainter painter(this);
      host_->paint(painter);
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
      content_(view.content()),
      widget_(new Widget(*this, parent)) {
  widget_->resize(size());
  for (const ViewElement& element : content_.elements) {
    elements_.push_back(makeElementView(element, view_, *widget_));
  }
  widget_->setAccessibleName(nameOf(content_));
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

void HostedView::setBlending(const Blending& blending) {
  if (blending != blending_) {
    blending_ = blending;
    widget_->update();
  }
}

void HostedView::viewChanged() {
  ViewContent now = view_.content();
  if (now == content_ && size() == widget_->size()) {
    return;
  }
  content_ = std::move(now);
  widget_->resize(size());
  widget_->setAccessibleName(nameOf(content_));
  for (std::size_t i = 0; i < elements_.size() && i < content_.elements.size(); ++i) {
    elements_[i]->update(content_.elements[i], view_.frame().size.height);
  }
  widget_->update();
  onChange();
}

X11TextField* HostedView::textField() {
  for (const std::unique_ptr<ElementView>& element : elements_) {
    if (X11TextField* field = element->textField()) {
      return field;
    }
  }
  return nullptr;
}

void HostedView::cancelMenuTracking() {
  const std::function<void()> cancel = onCancelMenuTracking;
  cancel();
}

void HostedView::paint(QPainter& painter) const {
  const QRect bounds = widget_->rect();
  painter.setRenderHint(QPainter::Antialiasing);
  if (content_.background) {
    QColor color = toQt(*content_.background);
    if (blending_.solid) {
      color.setAlphaF(1.0F);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(QRectF(bounds), content_.cornerRadius, content_.cornerRadius);
  }
  for (const std::unique_ptr<ElementView>& element : elements_) {
    element->paint(painter);
  }
  if (blending_.opacity < 1.0) {
    // All of it together, so that nothing shines through what covers it.
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.fillRect(bounds, QColor::fromRgbF(0.0F, 0.0F, 0.0F, static_cast<float>(blending_.opacity)));
  }
}

QString HostedView::cutText() const {
  const ViewElement* element = visibleText(content_);
  if (element == nullptr) {
    return {};
  }
  const auto& text = std::get<TextElement>(element->kind);
  return isCut(text.text, toQt(text.font), element->frame.size.width) ? singleLine(text.text) : QString();
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
