#include "platform/x11/preferences/PageLabel.h"

#include "platform/x11/drawing/QtValues.h"
#include "platform/x11/drawing/Text.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>
#include <QTextOption>
#include <algorithm>
#include <cmath>

namespace roomlattice::platform::x11 {
namespace {

/// The size of `text` broken into lines no wider than `width`.
QSizeF wrappedSize(const QString& text, const QFont& font, const QTextOption& option, double width) {
  QTextLayout layout(text, font);
  layout.setTextOption(option);
  QSizeF size;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    size.setWidth(std::max(size.width(), line.naturalTextWidth()));
    size.setHeight(size.height() + line.height());
  }
  layout.endLayout();
  return size;
}

}  // namespace

PageLabel::PageLabel(const LabelControl& label) : wrapWidth_(label.wrapWidth), color_(label.color) {
  setTextFormat(Qt::PlainText);
  setFont(toQt(label.font));
  setText(singleLine(label.text));
}

QTextOption PageLabel::textOption() const {
  QTextOption option(Qt::AlignLeading | Qt::AlignVCenter);
  option.setWrapMode(wrapWidth_ ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
  return option;
}

QSize PageLabel::sizeHint() const {
  const QFontMetricsF metrics(font());
  QSizeF size(metrics.horizontalAdvance(text()), metrics.height());
  if (wrapWidth_ && size.width() > *wrapWidth_) {
    size = wrappedSize(text(), font(), textOption(), *wrapWidth_);
  }
  return {static_cast<int>(std::ceil(size.width())), static_cast<int>(std::ceil(size.height()))};
}

void PageLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(toQt(color_, palette()));
  painter.drawText(QRectF(rect()), text(), textOption());
}

}  // namespace roomlattice::platform::x11
