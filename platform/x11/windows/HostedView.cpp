#include "platform/x11/windows/HostedView.h"

#include "platform/x11/drawing/Drawing.h"
#include "platform/x11/drawing/QtValues.h"
#include "platform/x11/drawing/Text.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <chrono>
#include <cmath>

namespace roomlattice::platform::x11 {
namespace {

constexpr std::chrono::milliseconds spinnerTurn(1000);

QSize pixelSize(const Size& size) {
  return {static_cast<int>(std::ceil(size.width)), static_cast<int>(std::ceil(size.height))};
}

bool spins(const ViewElement& element) {
  return std::holds_alternative<SpinnerElement>(element.kind) && !element.hidden;
}

QString visibleText(const ViewContent& content) {
  for (const ViewElement& element : content.elements) {
    if (const auto* text = std::get_if<TextElement>(&element.kind); text != nullptr && !element.hidden) {
      return singleLine(text->text);
    }
  }
  return {};
}

}  // namespace

HostedView::HostedView(View& view, QWidget* parent) : QWidget(parent), view_(view), content_(view.content()) {
  setMouseTracking(true);
  resize(pixelSize(view.frame().size));
  spinning_.callOnTimeout(this, [this] {
    spinnerStep_ = (spinnerStep_ + 1) % spinnerSteps;
    update();
  });
  makeControls();
  updateControls();
  view_.setHost(this);
}

HostedView::~HostedView() {
  view_.setHost(nullptr);
}

QSize HostedView::sizeHint() const {
  return pixelSize(view_.frame().size);
}

void HostedView::setBlending(const Blending& blending) {
  if (blending != blending_) {
    blending_ = blending;
    update();
  }
}

void HostedView::viewChanged() {
  ViewContent now = view_.content();
  const QSize size = pixelSize(view_.frame().size);
  if (now == content_ && size == this->size()) {
    return;
  }
  content_ = std::move(now);
  resize(size);
  updateControls();
  updateSpinning();
  update();
}

void HostedView::cancelMenuTracking() {
  if (onCancelMenuTracking) {
    onCancelMenuTracking();
  }
}

void HostedView::makeControls() {
  for (const ViewElement& element : content_.elements) {
    QWidget* control = nullptr;
    if (std::holds_alternative<ButtonElement>(element.kind)) {
      control = new SymbolButton(view_, this);
    } else if (std::holds_alternative<TextFieldElement>(element.kind)) {
      control = field_ = new X11TextField(view_, this);
    }
    controls_.push_back(control);
  }
}

void HostedView::updateControls() {
  setAccessibleName(visibleText(content_));
  const double height = view_.frame().size.height;
  for (std::size_t i = 0; i < controls_.size() && i < content_.elements.size(); ++i) {
    const ViewElement& element = content_.elements[i];
    if (const auto* button = std::get_if<ButtonElement>(&element.kind)) {
      controls_[i]->setGeometry(toQt(element.frame, height).toAlignedRect());
      static_cast<SymbolButton*>(controls_[i])->show(*button);
      controls_[i]->setVisible(!element.hidden);
    } else if (const auto* field = std::get_if<TextFieldElement>(&element.kind)) {
      controls_[i]->setGeometry(toQt(element.frame, height).toAlignedRect());
      static_cast<X11TextField*>(controls_[i])->show(*field, element.hidden);
    }
  }
}

void HostedView::updateSpinning() {
  const bool turning = isVisible() && std::any_of(content_.elements.begin(), content_.elements.end(), spins);
  if (turning && !spinning_.isActive()) {
    spinning_.start(spinnerTurn / spinnerSteps);
  } else if (!turning) {
    spinning_.stop();
  }
}

void HostedView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (content_.background) {
    QColor color = toQt(*content_.background);
    if (blending_.solid) {
      color.setAlphaF(1.0F);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(QRectF(rect()), content_.cornerRadius, content_.cornerRadius);
  }
  for (const ViewElement& element : content_.elements) {
    paint(painter, element);
  }
  if (blending_.opacity < 1.0) {
    // All of it together, so that nothing shines through what covers it.
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.fillRect(rect(), QColor::fromRgbF(0.0F, 0.0F, 0.0F, static_cast<float>(blending_.opacity)));
  }
}

void HostedView::paint(QPainter& painter, const ViewElement& element) const {
  const double height = view_.frame().size.height;
  if (element.hidden) {
    return;
  }
  if (const auto* text = std::get_if<TextElement>(&element.kind)) {
    drawText(painter, toQt(element.frame, height), text->text, toQt(text->font), colorOf(text->color), text->alignment);
  } else if (const auto* image = std::get_if<ImageElement>(&element.kind)) {
    drawImage(painter, toQt(element.frame, height), image->image, colorOf(SystemColor::Label));
  } else if (std::holds_alternative<SpinnerElement>(element.kind)) {
    drawSpinner(painter, toQt(element.frame, height), spinnerStep_, Qt::white);
  }
}

QColor HostedView::colorOf(const TextColor& color) const {
  if (const auto* given = std::get_if<Color>(&color)) {
    return toQt(*given);
  }
  QColor label = palette().color(QPalette::WindowText);
  if (std::get<SystemColor>(color) == SystemColor::SecondaryLabel) {
    label.setAlphaF(label.alphaF() * 0.6F);
  }
  return label;
}

void HostedView::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) {
    update();
  }
  QWidget::changeEvent(event);
}

void HostedView::showEvent(QShowEvent* event) {
  updateSpinning();
  QWidget::showEvent(event);
}

void HostedView::hideEvent(QHideEvent* event) {
  updateSpinning();
  QWidget::hideEvent(event);
}

void HostedView::enterEvent(QEnterEvent*) {
  onHover ? onHover(true) : view_.mouseEntered();
}

void HostedView::leaveEvent(QEvent*) {
  onHover ? onHover(false) : view_.mouseExited();
}

void HostedView::mousePressEvent(QMouseEvent* event) {
  // The release is wanted here, and a menu around the view is not to take the press for its own.
  event->accept();
}

void HostedView::mouseReleaseEvent(QMouseEvent* event) {
  event->accept();
  const Point point = fromQt(event->position(), view_.frame().size.height);
  if (event->button() == Qt::LeftButton && view_.hitTest(point) == HitTarget::View) {
    view_.mouseUp(point);
  }
}

}  // namespace roomlattice::platform::x11
