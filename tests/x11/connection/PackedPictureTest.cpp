#include "platform/x11/connection/PackedPicture.h"

#include <QPainter>
#include <QPainterPath>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::x11::InkMask;
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
    EXPECT_EQ(unpacked(PackedPicture::of(image).value()), image) << size.width() << " by " << size.height();
  }
}

TEST(PackedPictureTest, IsAllPlateWhereThereIsNothingElse) {
  QImage image(40, 40, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::red);
  const PackedPicture packed = PackedPicture::of(image).value();
  EXPECT_EQ(packed.plate(), std::vector{image.rect()});
  EXPECT_TRUE(packed.details().empty());
  EXPECT_EQ(packed.plateColor(), 0xffff0000U);
}

/// All of the first pixels have colours of their own.
QImage colorful(int colors) {
  QImage image(400, 400, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::white);
  for (int color = 0; color < colors; ++color) {
    image.setPixel(color % 400, color / 400, 0xff000000U + static_cast<std::uint32_t>(color));
  }
  return image;
}

TEST(PackedPictureTest, HasAsManyColorsAsCanBeToldApart) {
  // All but one of them, and the plate's.
  const QImage image = colorful(65535);
  const std::optional<PackedPicture> packed = PackedPicture::of(image);
  ASSERT_TRUE(packed);
  EXPECT_EQ(unpacked(*packed), image);
  EXPECT_FALSE(PackedPicture::of(colorful(65536)));
}

/// Round shapes of that colour on a plate to its corners.
QImage letters(const QColor& plate, const QColor& ink) {
  QImage image(101, 77, QImage::Format_ARGB32_Premultiplied);
  image.fill(plate);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ink);
  painter.drawEllipse(QPoint(30, 38), 12, 20);
  painter.drawEllipse(QPoint(70, 38), 9, 25);
  return image;
}

int blended(int from, int to, int coverage) {
  return from + (to - from) * coverage / 255;
}

TEST(PackedPictureTest, IsItsInkOverItsPlateWhereItHasNoOtherColor) {
  const QImage image = letters(QColor(0, 0, 0, 199), Qt::white);
  const PackedPicture packed = PackedPicture::of(image).value();
  ASSERT_EQ(packed.ink(), 0xffffffffU);
  const InkMask mask = packed.inkMask();
  ASSERT_EQ(mask.coverage.size(), mask.bytesPerRow() * static_cast<std::size_t>(mask.area.height()));
  EXPECT_TRUE(mask.area.contains(QRect(18, 13, 61, 50)));
  const std::uint32_t plate = packed.plateColor();
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QPoint in = QPoint(x, y) - mask.area.topLeft();
      const int coverage =
          !mask.area.contains(x, y)
              ? 0
              : mask.coverage[static_cast<std::size_t>(in.y()) * mask.bytesPerRow() + static_cast<std::size_t>(in.x())];
      const auto pixel = reinterpret_cast<const std::uint32_t*>(image.constScanLine(y))[x];
      EXPECT_NEAR(qAlpha(pixel), blended(qAlpha(plate), 255, coverage), 1) << x << "," << y;
      EXPECT_NEAR(qRed(pixel), blended(qRed(plate), 255, coverage), 1) << x << "," << y;
    }
  }
}

TEST(PackedPictureTest, HasNoInkWhereItHasSeveralColors) {
  QImage image = letters(Qt::black, Qt::white);
  image.setPixel(50, 38, 0xffff0000U);
  EXPECT_EQ(PackedPicture::of(image).value().ink(), std::nullopt);
  EXPECT_EQ(PackedPicture::of(label({64, 48})).value().ink(), std::nullopt);
}

TEST(PackedPictureTest, OfNothingIsNothing) {
  const PackedPicture packed = PackedPicture::of(QImage()).value();
  EXPECT_TRUE(packed.plate().empty());
  EXPECT_TRUE(packed.details().empty());
}

}  // namespace
}  // namespace roomlattice::tests
