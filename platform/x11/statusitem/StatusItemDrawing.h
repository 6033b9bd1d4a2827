#pragma once

#include "platform/StatusItem.h"

#include <QColor>
#include <QRectF>

class QPainter;

namespace roomlattice::platform::x11 {

/// The height of the status bar's items, in points, and the least width that is easy to hit.
inline constexpr double statusBarHeight = 24.0;

/// The colours that the desktop's appearance gives the status bar.
struct StatusBarColors {
  QColor backdrop;
  QColor text;

  bool operator==(const StatusBarColors&) const = default;
};

/// The width that `length` gives an item showing `content`, at most `available`.
double statusItemWidth(const StatusButtonContent& content, const StatusItemLength& length, double available);

/// The radius of the corners of what drawStatusItem draws.
double statusItemCornerRadius(const StatusButtonContent& content);

/// Draws an item over all of `bounds`: the content's background, or the bar's backdrop where it has none, so that it is
/// legible whatever is below it, then its title or image.
void drawStatusItem(QPainter& painter, const QRectF& bounds, const StatusButtonContent& content,
                    const StatusBarColors& colors);

}  // namespace roomlattice::platform::x11
