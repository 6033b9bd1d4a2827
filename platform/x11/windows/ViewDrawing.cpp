#include "platform/x11/windows/ViewDrawing.h"

#include "platform/x11/drawing/QtValues.h"
#include "platform/x11/drawing/Text.h"

#include <QPainter>
#include <QRectF>
#include <algorithm>
#include <cmath>
#include <utility>
#include <variant>

namespace roomlattice::platform::x11 {
namespace {

const ViewElement* visibleTextOf(const ViewContent& content) {
  const auto found = std::ranges::find_if(content.elements, [](const ViewElement& element) {
    return std::holds_alternative<TextElement>(element.kind) && !element.hidden;
  });
  return found == content.elements.end() ? nullptr : &*found;
}

}  // namespace

ViewDrawing::ViewDrawing(View& view, QWidget& widget)
    : view_(view), content_(view.content()), size_(view.frame().size) {
  for (const ViewElement& element : content_.elements) {
    elements_.push_back(makeElementView(element, view_, widget));
  }
}

QString ViewDrawing::visibleText() const {
  const ViewElement* element = visibleTextOf(content_);
  return element == nullptr ? QString() : singleLine(std::get<TextElement>(element->kind).text);
}

QString ViewDrawing::cutText() const {
  const ViewElement* element = visibleTextOf(content_);
  if (element == nullptr) {
    return {};
  }
  const auto& text = std::get<TextElement>(element->kind);
  return isCut(text.text, toQt(text.font), element->frame.size.width) ? singleLine(text.text) : QString();
}

bool ViewDrawing::update() {
  ViewContent now = view_.content();
  const Size size = view_.frame().size;
  if (now == content_ && size == size_) {
    return false;
  }
  content_ = std::move(now);
  size_ = size;
  for (std::size_t i = 0; i < elements_.size() && i < content_.elements.size(); ++i) {
    elements_[i]->update(content_.elements[i], size_.height);
  }
  return true;
}

void ViewDrawing::paint(QPainter& painter, const Blending& blending) const {
  const QRectF bounds(0.0, 0.0, std::ceil(size_.width), std::ceil(size_.height));
  painter.setRenderHint(QPainter::Antialiasing);
  if (content_.background) {
    QColor color = toQt(*content_.background);
    if (blending.solid) {
      color.setAlphaF(1.0F);
    }
    const double radius = blending.solid ? 0.0 : content_.cornerRadius;
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(bounds, radius, radius);
  }
  for (const std::unique_ptr<ElementView>& element : elements_) {
    element->paint(painter);
  }
  if (blending.opacity < 1.0) {
    // All of it together, so that nothing shines through what covers it.
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.fillRect(bounds, QColor::fromRgbF(0.0F, 0.0F, 0.0F, static_cast<float>(blending.opacity)));
  }
}

X11TextField* ViewDrawing::textField() const {
  for (const std::unique_ptr<ElementView>& element : elements_) {
    if (X11TextField* field = element->textField()) {
      return field;
    }
  }
  return nullptr;
}

}  // namespace roomlattice::platform::x11
