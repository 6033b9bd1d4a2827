#include "platform/x11/statusitem/TileDrawing.h"

#include "platform/linux/control/ColorText.h"
#include "platform/x11/drawing/Drawing.h"
#include "platform/x11/drawing/QtValues.h"
#include "platform/x11/drawing/Text.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QTextBoundaryFinder>
#include <algorithm>
#include <cmath>

namespace roomlattice::platform::x11 {
namespace {

constexpr Color neutralTile{72 / 255.0, 72 / 255.0, 77 / 255.0};

struct TileColors {
  QColor tile;
  QColor text;
};

TileColors colorsOf(const StatusButtonContent& content) {
  if (content.background) {
    return {toQt(*content.background), content.title.color ? toQt(*content.title.color) : QColor(Qt::white)};
  }
  const Color tile = content.title.color.value_or(neutralTile);
  return {toQt(tile), toQt(linux::textColorOn(tile))};
}

/// What a reader takes for one character, which may be several code points.
QString firstCharacter(const QString& text) {
  QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
  const QString first = text.left(std::max<qsizetype>(finder.toNextBoundary(), 0));
  const QString upper = first.toUpper();
  return upper.size() == first.size() ? upper : first;
}

QString shortTitle(const StatusTitle& title) {
  return title.number ? QString::number(*title.number) : firstCharacter(singleLine(title.text).trimmed());
}

QFont tileFont(double pixels) {
  QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
  font.setPixelSize(std::max(static_cast<int>(std::lround(pixels)), 1));
  font.setWeight(QFont::Bold);
  return font;
}

QImage emptyImage(int width, int height) {
  QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  return image;
}

void fillTile(QPainter& painter, const QRectF& frame, const QColor& color) {
  const double radius = std::max(std::round(frame.height() / 6.0), 2.0);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawRoundedRect(frame, radius, radius);
}

/// In the middle of `frame` by what is seen of it.
void drawCharacter(QPainter& painter, const QRectF& frame, const QString& text, const QColor& color) {
  constexpr double heightOfText = 0.74;
  constexpr double widestText = 0.84;
  QFont font = tileFont(frame.height() * heightOfText);
  QRectF ink = QFontMetricsF(font).tightBoundingRect(text);
  const double room = frame.width() * widestText;
  if (ink.width() > room || ink.height() > room) {
    font = tileFont(std::floor(font.pixelSize() * room / std::max(ink.width(), ink.height())));
    ink = QFontMetricsF(font).tightBoundingRect(text);
  }
  const QPointF origin = frame.center() - ink.center();
  painter.setFont(font);
  painter.setPen(color);
  painter.drawText(QPointF(origin.x(), std::round(origin.y())), text);
}

/// A template image in white on a dark rim, which is readable on any panel.
void drawTemplate(QPainter& painter, const QRectF& frame, const Image& image) {
  const QColor rim(0, 0, 0, 120);
  const double width = std::max(frame.width() / 24.0, 0.75);
  for (const QPointF& way : {QPointF(-width, 0), QPointF(width, 0), QPointF(0, -width), QPointF(0, width)}) {
    drawImage(painter, frame.translated(way), image, rim);
  }
  drawImage(painter, frame, image, Qt::white);
}

}  // namespace

QImage drawTile(const StatusButtonContent& content, int side) {
  QImage image = emptyImage(side, side);
  QPainter painter(&image);
  // Without an edge the tile would touch its neighbours in the panel.
  const double edge = side >= 22 ? std::round(side / 16.0) : 0.0;
  const QRectF frame = QRectF(image.rect()).adjusted(edge, edge, -edge, -edge);
  if (content.image) {
    drawTemplate(painter, frame, *content.image);
    return image;
  }
  const TileColors colors = colorsOf(content);
  fillTile(painter, frame, colors.tile);
  drawCharacter(painter, frame, shortTitle(content.title), colors.text);
  return image;
}

QImage drawWideTile(const StatusButtonContent& content, int height) {
  if (content.image) {
    return drawTile(content, height);
  }
  const QFont font = tileFont(height * 0.58);
  const double textWidth = measureText(content.title.text, font).width;
  QImage image = emptyImage(static_cast<int>(std::ceil(textWidth)) + height / 4, height);
  QPainter painter(&image);
  const TileColors colors = colorsOf(content);
  const double edge = std::round(height / 16.0);
  const QRectF frame = QRectF(image.rect()).adjusted(edge, edge, -edge, -edge);
  fillTile(painter, frame, colors.tile);
  drawText(painter, frame, content.title.text, font, colors.text, TextAlignment::Center);
  return image;
}

}  // namespace roomlattice::platform::x11
