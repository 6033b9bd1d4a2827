#include "platform/x11/connection/PackedPicture.h"

#include <QPainter>
#include <QPainterPath>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::x11::GlyphMask;
using platform::x11::PackedPicture;

QImage unpacked(const PackedPicture& packed) {
  QImage image(packed.size(), QImage::Format_ARGB32_Premultiplied);
  const auto set = [&image](const QPoint& place, std::uint32_t pixel) {
    reinterpret_cast<std::uint32_t*>(image.scanLine(place.y()))[place.x()] = pixel;
  };
  for (int at = 0; at < image.width() * image.height(); ++at) {
    set(QPoint(at % image.width(), at / image.width()), packed.plateColor());
  }
  for (std::size_t detail = 0; detail < packed.details().size(); ++detail) {
    const QRect& area = packed.details()[detail].area;
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

/// What the picture is with `coverage` of an opaque white over a translucent black.
int blended(int from, int coverage) {
  return from + (255 - from) * coverage / 255;
}

void expectInk(const QImage& image, const QRect& area, const GlyphMask& mask) {
  ASSERT_EQ(mask.size, area.size());
  ASSERT_EQ(mask.coverage.size(), mask.bytesPerRow() * static_cast<std::size_t>(area.height()));
  for (int y = 0; y < area.height(); ++y) {
    for (int x = 0; x < area.width(); ++x) {
      const int coverage =
          mask.coverage[static_cast<std::size_t>(y) * mask.bytesPerRow() + static_cast<std::size_t>(x)];
      const QPoint place = area.topLeft() + QPoint(x, y);
      const auto pixel = reinterpret_cast<const std::uint32_t*>(image.constScanLine(place.y()))[place.x()];
      EXPECT_NEAR(qAlpha(pixel), blended(199, coverage), 1) << place.x() << "," << place.y();
      EXPECT_NEAR(qRed(pixel), blended(0, coverage), 1) << place.x() << "," << place.y();
    }
  }
}

TEST(PackedPictureTest, IsItsInkOverItsPlateWhereItHasNoOtherColor) {
  const QImage image = letters(QColor(0, 0, 0, 199), Qt::white);
  const PackedPicture packed = PackedPicture::of(image).value();
  ASSERT_EQ(packed.ink(), 0xffffffffU);
  ASSERT_EQ(packed.details().size(), 2U);
  for (std::size_t detail = 0; detail < packed.details().size(); ++detail) {
    ASSERT_TRUE(packed.details()[detail].isInk());
    expectInk(image, packed.details()[detail].area, packed.mask(detail));
  }
}

TEST(PackedPictureTest, KnowsTheSameLetterAgain) {
  QImage twice(160, 77, QImage::Format_ARGB32_Premultiplied);
  twice.fill(Qt::black);
  QPainter painter(&twice);
  painter.drawImage(QPoint(0, 0), letters(Qt::black, Qt::white).copy(0, 0, 50, 77));
  painter.drawImage(QPoint(50, 3), letters(Qt::black, Qt::white).copy(0, 0, 50, 70));
  painter.drawImage(QPoint(100, 0), letters(Qt::black, Qt::white).copy(50, 0, 50, 77));
  painter.end();
  const PackedPicture packed = PackedPicture::of(twice).value();
  ASSERT_EQ(packed.details().size(), 3U);
  EXPECT_EQ(packed.details()[0].shape, packed.details()[1].shape);
  EXPECT_NE(packed.details()[0].shape, packed.details()[2].shape);
}

TEST(PackedPictureTest, TellsShapesOfDifferentSizesApart) {
  // Both are the same bytes, row after row.
  QImage image(40, 40, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::black);
  QPainter painter(&image);
  painter.fillRect(QRect(4, 4, 8, 4), Qt::white);
  painter.fillRect(QRect(20, 4, 4, 8), Qt::white);
  painter.end();
  const PackedPicture packed = PackedPicture::of(image).value();
  ASSERT_EQ(packed.details().size(), 2U);
  EXPECT_EQ(packed.mask(0).coverage, packed.mask(1).coverage);
  EXPECT_NE(packed.details()[0].shape, packed.details()[1].shape);
}

TEST(PackedPictureTest, HasNoInkInADetailOfSeveralColors) {
  QImage image = letters(Qt::black, Qt::white);
  image.setPixel(30, 38, 0xffff0000U);
  const PackedPicture packed = PackedPicture::of(image).value();
  ASSERT_EQ(packed.details().size(), 2U);
  EXPECT_FALSE(packed.details()[0].isInk());
  EXPECT_TRUE(packed.details()[1].isInk());
}

TEST(PackedPictureTest, HasInkBetweenRoundCornersButNotInThem) {
  const PackedPicture packed = PackedPicture::of(label({64, 48})).value();
  ASSERT_EQ(packed.details().size(), 5U);
  for (const PackedPicture::Detail& detail : packed.details()) {
    EXPECT_EQ(detail.isInk(), detail.area.contains(32, 24)) << detail.area.x() << "," << detail.area.y();
  }
}

TEST(PackedPictureTest, HasNoInkWhereNothingIsOpaque) {
  const PackedPicture packed = PackedPicture::of(letters(QColor(0, 0, 0, 100), QColor(255, 0, 0, 200))).value();
  EXPECT_EQ(packed.ink(), std::nullopt);
  EXPECT_FALSE(packed.details().at(0).isInk());
}

TEST(PackedPictureTest, OfNothingIsNothing) {
  const PackedPicture packed = PackedPicture::of(QImage()).value();
  EXPECT_TRUE(packed.size().isEmpty());
  EXPECT_TRUE(packed.details().empty());
}

}  // namespace
}  // namespace roomlattice::tests
