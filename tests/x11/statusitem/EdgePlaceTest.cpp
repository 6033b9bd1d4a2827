#include "platform/x11/statusitem/EdgePlace.h"

#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::x11::Edge;
using platform::x11::EdgePlace;
using platform::x11::frameAt;
using platform::x11::nearestPlace;

const QRect area(100, 50, 1000, 600);
const QSize size(80, 24);

TEST(EdgePlaceTest, IsTheMiddleOfTheTopUnlessSaidOtherwise) {
  EXPECT_EQ(frameAt(EdgePlace{}, area, size), QRect(QPoint(560, 50), size));
}

TEST(EdgePlaceTest, LiesAtItsEdgeInsideTheArea) {
  struct Row {
    EdgePlace place;
    QPoint corner;
  };
  for (const Row& row :
       {Row{{Edge::Top, 0.0}, {100, 50}}, Row{{Edge::Top, 1.0}, {1020, 50}}, Row{{Edge::Bottom, 0.5}, {560, 626}},
        Row{{Edge::Left, 0.0}, {100, 50}}, Row{{Edge::Left, 0.5}, {100, 338}}, Row{{Edge::Right, 1.0}, {1020, 626}}}) {
    EXPECT_EQ(frameAt(row.place, area, size).topLeft(), row.corner);
  }
}

TEST(EdgePlaceTest, BeginsAtTheAreasCornerWhereThereIsNoRoom) {
  for (const Edge edge : {Edge::Top, Edge::Bottom, Edge::Left, Edge::Right}) {
    EXPECT_EQ(frameAt({edge, 0.5}, QRect(10, 20, 5, 6), size).topLeft(), QPoint(10, 20));
  }
}

TEST(EdgePlaceTest, IsFoundAgainByItsMiddle) {
  for (const EdgePlace& place : {EdgePlace{Edge::Top, 0.3}, EdgePlace{Edge::Bottom, 0.7}, EdgePlace{Edge::Left, 0.4},
                                 EdgePlace{Edge::Right, 0.6}}) {
    const QRect frame = frameAt(place, area, size);
    const EdgePlace found = nearestPlace(frame.center(), area, size);
    EXPECT_EQ(found.edge, place.edge);
    EXPECT_NEAR(found.along, place.along, 0.005);
  }
}

TEST(EdgePlaceTest, IsFoundForMiddlesOutsideTheAreaToo) {
  EXPECT_EQ(nearestPlace({600, -500}, area, size), (EdgePlace{Edge::Top, 0.5}));
  EXPECT_EQ(nearestPlace({-500, 350}, area, size), (EdgePlace{Edge::Left, 0.5}));
}

}  // namespace
}  // namespace roomlattice::tests
