#include "platform/x11/preferences/PageLabel.h"

#include "platform/x11/drawing/QtValues.h"
#include "platform/x11/drawing/Text.h"
#include "platform/x11/drawing/TextLine.h"
#include "platform/x11/drawing/ToolTips.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QPainter>
#include <QTextLayout>
#include <QTextOption>
#include <algorithm>
#include <cmath>

namespace roomlattice::platform::x11 {
namespace {

// Letters that are narrower than this are hard to read.
constexpr double narrowest = 0.8;

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
  QSizeF size(TextLine(text(), font()).width(), QFontMetricsF(font()).height());
  if (wrapWidth_ && size.width() > *wrapWidth_) {
    size = wrappedSize(text(), font(), textOption(), *wrapWidth_);
  }
  return {static_cast<int>(std::ceil(size.width())), static_cast<int>(std::ceil(size.height()))};
}

double PageLabel::stretch() const {
  const double natural = TextLine(text(), font()).width();
  return natural > width() ? std::max(width() / natural, narrowest) : 1.0;
}

bool PageLabel::isCut() const {
  return !wrapWidth_ && x11::isCut(text().toStdString(), font(), width() / stretch());
}

bool PageLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) {
    return QLabel::event(event);
  }
  answerToolTip(*this, static_cast<const QHelpEvent&>(*event), isCut() ? text().trimmed() : QString());
  return true;
}

void PageLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QColor color = toQt(color_, palette());
  if (wrapWidth_) {
    painter.setPen(color);
    painter.drawText(QRectF(rect()), text(), textOption());
    return;
  }
  const double factor = stretch();
  painter.scale(factor, 1.0);
  drawText(painter, QRectF(0.0, 0.0, width() / factor, height()), text().toStdString(), font(), color,
           TextAlignment::Leading);
}

}  // namespace roomlattice::platform::x11
