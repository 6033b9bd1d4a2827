#include "platform/x11/connection/PackedPicture.h"

#include <QPainter>
#include <QPainterPath>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::x11::PackedPicture;

QImage unpacked(const PackedPicture& packed) {
  QImage image(packed.size(), QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::magenta);
  const auto set = [&image](const QPoint& place, std::uint32_t pixel) {
    reinterpret_cast<std::uint32_t*>(image.scanLine(place.y()))[place.x()] = pixel;
  };
  for (const QRect& area : packed.plate()) {
    for (int at = 0; at < area.width() * area.height(); ++at) {
      set(area.topLeft() + QPoint(at % area.width(), at / area.width()), packed.plateColor());
    }
  }
  for (std::size_t detail = 0; detail < packed.details().size(); ++detail) {
    const QRect& area = packed.details()[detail];
    const std::vector<std::uint32_t> pixels = packed.pixels(detail);
    for (std::size_t at = 0; at < pixels.size(); ++at) {
      const int offset = static_cast<int>(at);
      set(area.topLeft() + QPoint(offset % area.width(), offset / area.width()), pixels[at]);
    }
  }
  return image;
}

/// A plate with round corners, and round shapes where its letters would be.
QImage label(const QSize& size) {
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0, 0, 0, 199));
  painter.drawRoundedRect(image.rect(), 10, 10);
  painter.setBrush(Qt::white);
  painter.drawEllipse(image.rect().center(), size.width() / 6, size.height() / 6);
  return image;
}

TEST(PackedPictureTest, IsThePictureAgain) {
  for (const QSize& size : {QSize(101, 77), QSize(64, 48), QSize(30, 5), QSize(1, 1), QSize(200, 16)}) {
    const QImage image = label(size);
    EXPECT_EQ(unpacked(PackedPicture(image)), image) << size.width() << " by " << size.height();
  }
}

TEST(PackedPictureTest, IsAllPlateWhereThereIsNothingElse) {
  QImage image(40, 40, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::red);
  const PackedPicture packed(image);
  EXPECT_EQ(packed.plate(), std::vector{image.rect()});
  EXPECT_TRUE(packed.details().empty());
  EXPECT_EQ(packed.plateColor(), 0xffff0000U);
}

TEST(PackedPictureTest, OfNothingIsNothing) {
  const PackedPicture packed{QImage()};
  EXPECT_TRUE(packed.plate().empty());
  EXPECT_TRUE(packed.details().empty());
}

}  // namespace
}  // namespace roomlattice::tests
