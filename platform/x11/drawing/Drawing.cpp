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

/// As people with low vision see it, by the formula of WCAG 2 (www.w3.org/TR/WCAG22/#dfn-relative-luminance).
double luminance(const QColor& color) {
  const auto linear = [](float part) {
    return part <= 0.04045F ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// From 1, for the same colour, to 21.
double contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
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

void outlineFaintShapes(QPainter& painter, const QRectF& target, const Image& image, const QColor& backdrop,
                        const QColor& line) {
  constexpr double leastContrast = 2.0;
  constexpr double hairline = 0.75;
  constexpr double opacity = 0.45;
  if (image.isTemplate) {
    return;
  }
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(target.topLeft());
  for (const Shape& shape : image.shapes) {
    if (contrast(toQt(shape.color), backdrop) < leastContrast) {
      const double reach = shape.lineWidth.value_or(0.0) / 2;
      Shape edge = shape;
      edge.bounds = {{shape.bounds.minX() - reach, shape.bounds.minY() - reach},
                     {shape.bounds.size.width + 2 * reach, shape.bounds.size.height + 2 * reach}};
      edge.lineWidth = hairline;
      edge.color = fromQt(line).withAlpha(opacity);
      drawShape(painter, edge, image.size.height);
    }
  }
  painter.restore();
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
