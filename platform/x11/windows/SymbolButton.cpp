#include "platform/x11/windows/SymbolButton.h"

#include "platform/x11/drawing/Drawing.h"
#include "platform/x11/drawing/QtValues.h"

#include <QPainter>

namespace roomlattice::platform::x11 {

SymbolButton::SymbolButton(QWidget* parent) : QAbstractButton(parent) {
  // The view around it keeps the keyboard.
  setFocusPolicy(Qt::NoFocus);
}

void SymbolButton::show(const ButtonElement& element) {
  if (element.symbol.name != symbol_) {
    symbol_ = element.symbol.name;
    update();
  }
  setAccessibleName(toQt(element.symbol.accessibilityDescription));
  setToolTip(toQt(element.toolTip));
}

void SymbolButton::paintEvent(QPaintEvent*) {
  QColor color = toQt(SystemColor::Label, palette());
  if (isDown()) {
    color.setAlphaF(color.alphaF() * 0.5F);
  }
  QPainter painter(this);
  drawSymbol(painter, QRectF(rect()), symbol_, color);
}

}  // namespace roomlattice::platform::x11
