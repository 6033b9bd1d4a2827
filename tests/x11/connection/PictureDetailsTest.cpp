#include "platform/x11/connection/PictureDetails.h"

#include <QPainter>
#include <gtest/gtest.h>
#include <initializer_list>

namespace roomlattice::tests {
namespace {

using platform::x11::detailsOf;

constexpr std::uint32_t black = 0xff000000;

QImage picture(std::initializer_list<QRect> shapes) {
  QImage image(300, 200, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::black);
  QPainter painter(&image);
  for (const QRect& shape : shapes) {
    painter.fillRect(shape, Qt::white);
  }
  return image;
}

TEST(PictureDetailsTest, AreNoneOfAPlate) {
  EXPECT_TRUE(detailsOf(picture({}), black).empty());
}

TEST(PictureDetailsTest, AreAsSmallAsTheyCanBe) {
  const QRect high(10, 10, 20, 60);
  const QRect low(40, 40, 5, 30);
  const QRect nextLine(20, 90, 100, 20);
  EXPECT_EQ(detailsOf(picture({nextLine, low, high}), black), (std::vector{high, low, nextLine}));
}

TEST(PictureDetailsTest, ReachTheEdges) {
  const QRect first(0, 0, 3, 200);
  const QRect last(297, 0, 3, 200);
  EXPECT_EQ(detailsOf(picture({first, last}), black), (std::vector{first, last}));
}

TEST(PictureDetailsTest, AreOneWhereTheyAreNear) {
  EXPECT_EQ(detailsOf(picture({{10, 10, 20, 20}, {33, 10, 20, 20}}), black), std::vector{QRect(10, 10, 43, 20)});
  EXPECT_EQ(detailsOf(picture({{10, 10, 20, 20}, {34, 10, 20, 20}}), black).size(), 2U);
  EXPECT_EQ(detailsOf(picture({{10, 10, 20, 20}, {10, 33, 20, 20}}), black), std::vector{QRect(10, 10, 20, 43)});
  EXPECT_EQ(detailsOf(picture({{10, 10, 20, 20}, {10, 34, 20, 20}}), black).size(), 2U);
}

TEST(PictureDetailsTest, AreCutWhereTheyAreLarge) {
  QImage large(1000, 200, QImage::Format_ARGB32_Premultiplied);
  large.fill(Qt::white);
  EXPECT_EQ(detailsOf(large, black), (std::vector{QRect(0, 0, 1000, 65), QRect(0, 65, 1000, 65),
                                                  QRect(0, 130, 1000, 65), QRect(0, 195, 1000, 5)}));
}

}  // namespace
}  // namespace roomlattice::tests
