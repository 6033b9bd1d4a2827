#pragma once

#include "platform/Color.h"
#include "platform/Geometry.h"
#include "platform/View.h"

#include <QColor>
#include <QPalette>
#include <QRectF>
#include <QSize>
#include <QString>
#include <string>

namespace roomlattice::platform::x11 {

/// The colour with its components limited to 0–1.
QColor toQt(const Color& color);
Color fromQt(const QColor& color);

/// The colour itself, or what the theme has for it.
QColor toQt(const TextColor& color, const QPalette& palette);

inline QString toQt(const std::string& text) {
  return QString::fromStdString(text);
}

/// The text for a title of the toolkit's, which takes a single ampersand for the mark of a keyboard shortcut.
QString withoutShortcuts(QString text);

/// The fewest whole pixels that hold it.
QSize toQt(const Size& size);

/// A rectangle of y-up coordinates in Qt's y-down ones; `height` is that of the surface both lie on.
QRectF toQt(const Rect& rect, double height);

/// A point of Qt's y-down coordinates in y-up ones; `height` is that of the surface both lie on.
Point fromQt(const QPointF& point, double height);

}  // namespace roomlattice::platform::x11
