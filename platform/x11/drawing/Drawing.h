#pragma once

#include "platform/Image.h"

#include <QColor>

class QPainter;
class QRectF;

namespace roomlattice::platform::x11 {

/// Draws `image` into `target` at the device's resolution. A template image lends its coverage to `tint`.
void drawImage(QPainter& painter, const QRectF& target, const Image& image, const QColor& tint);

/// Draws a hair line in the colour `line` around those shapes of an image that hardly differ from what they are drawn
/// on. The image is drawn in its own size, and is no template.
void outlineFaintShapes(QPainter& painter, const QRectF& target, const Image& image, const QColor& backdrop,
                        const QColor& line);

/// Draws the picture known under `name`; the only one so far is a pencil on a square ("square.and.pencil").
/// Other names give a plain dot, so that a button never is without a mark.
void drawSymbol(QPainter& painter, const QRectF& target, const std::string& name, const QColor& color);

/// Draws a spinner that has turned by `steps` of its `spinnerSteps` positions.
inline constexpr int spinnerSteps = 12;
void drawSpinner(QPainter& painter, const QRectF& target, int steps, const QColor& color);

}  // namespace roomlattice::platform::x11
