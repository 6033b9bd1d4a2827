#pragma once

#include "platform/StatusItem.h"

#include <QColor>
#include <QRectF>

class QPainter;

namespace roomlattice::platform::x11 {

/// The height of the status bar's items, in points.
inline constexpr double statusBarHeight = 24.0;

/// The colours that the desktop's appearance gives the status bar.
struct StatusBarColors {
  QColor backdrop;
  QColor text;
};

/// The width that `length` gives an item showing `content`, at most `available`.
double statusItemWidth(const StatusButtonContent& content, const StatusItemLength& length, double available);

/// Draws an item over all of `bounds`: the bar's backdrop, the content's background, then its title or image.
void drawStatusItem(QPainter& painter, const QRectF& bounds, const StatusButtonContent& content,
                    const StatusBarColors& colors);

}  // namespace roomlattice::platform::x11
