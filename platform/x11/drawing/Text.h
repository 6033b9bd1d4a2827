#pragma once

#include "platform/Font.h"
#include "platform/Geometry.h"
#include "platform/View.h"

#include <QColor>
#include <QFont>
#include <QString>
#include <string>

class QPainter;
class QRectF;

namespace roomlattice::platform::x11 {

/// `font` in the desktop's own family. A point is one logical pixel, so a font of 160 points is 160 logical pixels
/// high on every screen; sizes are rounded to whole pixels.
QFont toQt(const Font& font);

/// 13 points, or the size of the desktop's general font where that is larger.
double systemFontSize();

/// Text for a single line: a line break is a blank. Of a very long text only the first thousand UTF-16 units are shown,
/// and an ellipsis: fonts take too long for more.
QString singleLine(const std::string& text);

/// Advance, blanks at both ends included, and line height.
Size measureText(const std::string& text, const QFont& font);

/// Whether a frame of `width` is too narrow for the line.
bool isCut(const std::string& text, const QFont& font, double width);

/// Draws one line, centred vertically in `frame`, over its whole advance. A line longer than the frame ends in an
/// ellipsis; blanks at its ends stay, so that a padded text remains padded. The leading side of a text that is read
/// from right to left is the right one, and so its end is at the left.
void drawText(QPainter& painter, const QRectF& frame, const std::string& text, const QFont& font, const QColor& color,
              TextAlignment alignment);

}  // namespace roomlattice::platform::x11
