#include "platform/x11/drawing/Drawing.h"

#include "platform/x11/drawing/QtValues.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <algorithm>
#include <cmath>

namespace roomlattice::platform::x11 {
namespace {

void drawShape(QPainter& painter, const Shape& shape, double imageHeight) {
  if (shape.lineWidth) {
    painter.setPen(QPen(toQt(shape.color), *shape.lineWidth));
    painter.setBrush(Qt::NoBrush);
  } else {
    painter.setPen(Qt::NoPen);
    painter.setBrush(toQt(shape.color));
  }
  const QRectF bounds = toQt(shape.bounds, imageHeight);
  if (shape.kind == ShapeKind::Ellipse) {
    painter.drawEllipse(bounds);
  } else {
    painter.drawRoundedRect(bounds, shape.cornerRadius, shape.cornerRadius);
  }
}

void drawShapes(QPainter& painter, const QRectF& target, const Image& image) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(target.topLeft());
  painter.scale(target.width() / image.size.width, target.height() / image.size.height);
  for (const Shape& shape : image.shapes) {
    drawShape(painter, shape, image.size.height);
  }
  painter.restore();
}

/// Shapes may overlap, so their coverage has to be put together before it is coloured.
QImage tinted(const Image& image, const QSizeF& size, double scale, const QColor& tint) {
  QImage layer((size * scale).toSize().expandedTo(QSize(1, 1)), QImage::Format_ARGB32_Premultiplied);
  layer.fill(Qt::transparent);
  QPainter painter(&layer);
  drawShapes(painter, QRectF(layer.rect()), image);
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.fillRect(layer.rect(), tint);
  return layer;
}

/// On a grid of 18 × 18 units, y downwards: a square open at the top right corner, and a slanted pencil in front.
void drawPencilOnSquare(QPainter& painter, const QColor& color) {
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(color, 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  QPainterPath square;
  square.moveTo(9.5, 4.0);
  square.lineTo(5.0, 4.0);
  square.quadTo(3.0, 4.0, 3.0, 6.0);
  square.lineTo(3.0, 13.0);
  square.quadTo(3.0, 15.0, 5.0, 15.0);
  square.lineTo(12.0, 15.0);
  square.quadTo(14.0, 15.0, 14.0, 13.0);
  square.lineTo(14.0, 8.5);
  painter.drawPath(square);

  QPainterPath pencil;
  pencil.moveTo(7.0, 11.0);
  pencil.lineTo(7.6, 8.8);
  pencil.lineTo(13.6, 2.8);
  pencil.lineTo(15.2, 4.4);
  pencil.lineTo(9.2, 10.4);
  pencil.closeSubpath();
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawPath(pencil);
}

}  // namespace

void drawImage(QPainter& painter, const QRectF& target, const Image& image, const QColor& tint) {
  if (image.size.width <= 0.0 || image.size.height <= 0.0) {
    return;
  }
  if (image.isTemplate) {
    const double scale = painter.device()->devicePixelRatioF();
    painter.drawImage(target, tinted(image, target.size(), scale, tint));
  } else {
    drawShapes(painter, target, image);
  }
}

void drawSymbol(QPainter& painter, const QRectF& target, const std::string& name, const QColor& color) {
  constexpr double grid = 18.0;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(target.topLeft());
  painter.scale(target.width() / grid, target.height() / grid);
  if (name == "square.and.pencil") {
    drawPencilOnSquare(painter, color);
  } else {
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(QPointF(grid / 2, grid / 2), 3.0, 3.0);
  }
  painter.restore();
}

void drawSpinner(QPainter& painter, const QRectF& target, int steps, const QColor& color) {
  const double radius = std::min(target.width(), target.height()) / 2;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(target.center());
  painter.rotate(360.0 * steps / spinnerSteps);
  for (int spoke = 0; spoke < spinnerSteps; ++spoke) {
    // The last spoke leads and is the brightest.
    QColor faded = color;
    faded.setAlphaF(color.alphaF() * (0.2F + 0.8F * static_cast<float>(spoke) / (spinnerSteps - 1)));
    painter.setPen(QPen(faded, radius * 0.17, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(0.0, -radius * 0.5), QPointF(0.0, -radius * 0.9));
    painter.rotate(360.0 / spinnerSteps);
  }
  painter.restore();
}

}  // namespace roomlattice::platform::x11
