#include "platform/x11/drawing/Drawing.h"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::Color;

class DrawingTest : public ::testing::Test {
 protected:
  /// The least light that a ring of that colour and its outline leave of what they are drawn on.
  static int darkest(const Color& color, const QColor& backdrop) {
    QImage canvas(30, 30, QImage::Format_RGB32);
    canvas.fill(backdrop);
    QPainter painter(&canvas);
    const platform::Image ring{.size = {14.0, 14.0},
                               .shapes = {{.kind = platform::ShapeKind::Ellipse,
                                           .bounds = {{1.0, 1.0}, {12.0, 12.0}},
                                           .color = color,
                                           .lineWidth = 1.5}}};
    const QRectF target(8.0, 8.0, 14.0, 14.0);
    platform::x11::drawImage(painter, target, ring, Qt::black);
    platform::x11::outlineFaintShapes(painter, target, ring, backdrop, Qt::black);
    painter.end();
    int least = 255;
    for (int y = 0; y < canvas.height(); ++y) {
      for (int x = 0; x < canvas.width(); ++x) {
        least = std::min(least, qGray(canvas.pixel(x, y)));
      }
    }
    return least;
  }
};

TEST_F(DrawingTest, OutlinesARingThatHardlyDiffersFromWhatItIsDrawnOn) {
  EXPECT_LT(darkest({1.0, 0.85, 0.6}, Qt::white), 190);
  EXPECT_LT(darkest({1.0, 1.0, 1.0}, Qt::white), 190);
}

TEST_F(DrawingTest, LeavesARingThatIsPlainToSeeAsItIs) {
  const Color strong{1.0, 0.0, 0.0};
  EXPECT_GE(darkest(strong, Qt::white), qGray(QColor(255, 0, 0).rgb()));
  EXPECT_GE(darkest({1.0, 0.85, 0.6}, QColor(40, 40, 40)), 40);
}

}  // namespace
}  // namespace roomlattice::tests
