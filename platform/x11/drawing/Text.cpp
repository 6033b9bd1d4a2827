#include "platform/x11/drawing/Text.h"

#include "platform/x11/drawing/TextLine.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QPainter>
#include <QRectF>
#include <algorithm>
#include <cmath>

namespace roomlattice::platform::x11 {
namespace {

constexpr double standardFontSize = 13.0;

QFont::Weight weightOf(FontWeight weight) {
  switch (weight) {
    case FontWeight::Regular:
      return QFont::Normal;
    case FontWeight::Medium:
      return QFont::Medium;
    case FontWeight::Semibold:
      return QFont::DemiBold;
    case FontWeight::Heavy:
      return QFont::ExtraBold;
  }
  return QFont::Normal;
}

// What is ever shown of a text, in UTF-16 units, and the bytes that suffice for one more.
constexpr qsizetype mostUnits = 1000;
constexpr std::size_t mostBytes = 4 * (mostUnits + 1);

QString shortened(const QString& text) {
  if (text.size() <= mostUnits) {
    return text;
  }
  const bool splitsPair = text.at(mostUnits - 1).isHighSurrogate();
  return text.left(splitsPair ? mostUnits - 1 : mostUnits) + u'\u2026';
}

}  // namespace

QFont toQt(const Font& font) {
  QFont result = QFontDatabase::systemFont(font.family == FontFamily::MonospacedSystem ? QFontDatabase::FixedFont
                                                                                       : QFontDatabase::GeneralFont);
  result.setPixelSize(std::max(1, static_cast<int>(std::lround(font.size))));
  result.setWeight(weightOf(font.weight));
  return result;
}

double systemFontSize() {
  const int general = QFontInfo(QFontDatabase::systemFont(QFontDatabase::GeneralFont)).pixelSize();
  return std::max(standardFontSize, static_cast<double>(general));
}

QString singleLine(const std::string& text) {
  QString line = shortened(QString::fromUtf8(text.data(), static_cast<qsizetype>(std::min(text.size(), mostBytes))));
  for (QChar& character : line) {
    const char16_t code = character.unicode();
    if (code == u'\n' || code == u'\r' || code == QChar::LineSeparator || code == QChar::ParagraphSeparator) {
      character = u' ';
    }
  }
  return line;
}

Size measureText(const std::string& text, const QFont& font) {
  return {TextLine(singleLine(text), font).width(), QFontMetricsF(font).height()};
}

bool isCut(const std::string& text, const QFont& font, double width) {
  const QString line = singleLine(text);
  return TextLine::fitted(line, font, width).text() != line;
}

void drawText(QPainter& painter, const QRectF& frame, const std::string& text, const QFont& font, const QColor& color,
              TextAlignment alignment) {
  const TextLine line = TextLine::fitted(singleLine(text), font, frame.width());
  const double leading = line.isRightToLeft() ? frame.right() - line.width() : frame.left();
  const double x = alignment == TextAlignment::Center ? frame.center().x() - line.width() / 2 : leading;
  const QFontMetricsF metrics(font);
  const double baseline = frame.center().y() + (metrics.ascent() - metrics.descent()) / 2;
  painter.setPen(color);
  line.draw(painter, QPointF(x, baseline));
}

}  // namespace roomlattice::platform::x11
