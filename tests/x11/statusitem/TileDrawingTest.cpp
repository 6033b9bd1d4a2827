#include "platform/x11/statusitem/TileDrawing.h"

#include "tests/x11/session/QtApplication.h"
#include "tests/x11/session/ScreenImage.h"
#include "tests/x11/session/X11Session.h"

#include <cmath>
#include <gtest/gtest.h>

namespace roomlattice::tests {
namespace {

using platform::Color;
using platform::Image;
using platform::StatusButtonContent;
using platform::x11::drawTile;
using platform::x11::drawWideTile;

StatusButtonContent named(const std::string& name) {
  return {.title = {.text = " " + name + " ", .color = Color::black()}, .background = Color{1.0, 0.0, 0.0}};
}

StatusButtonContent numbered(int number) {
  StatusButtonContent content = named("Desktop " + std::to_string(number));
  content.title.number = number;
  return content;
}

class TileDrawingTest : public ::testing::Test {
 protected:
  X11Session session_{{.windowManager = std::nullopt}};
  QtApplication qt_;
};

TEST_F(TileDrawingTest, ShowsTheNumberOfADesktopWithoutAName) {
  EXPECT_NE(drawTile(numbered(1), 32), drawTile(numbered(2), 32));
  EXPECT_EQ(drawTile(numbered(7), 32), drawTile(named("7th floor"), 32));
}

TEST_F(TileDrawingTest, ShowsTheFirstCharacterOfAName) {
  EXPECT_EQ(drawTile(named("Mail"), 32), drawTile(named("mending"), 32));
  EXPECT_NE(drawTile(named("Mail"), 32), drawTile(named("Work"), 32));
  EXPECT_EQ(drawTile(named("E\u0301tude"), 32), drawTile(named("e\u0301cole"), 32));
  EXPECT_NE(drawTile(named("E\u0301tude"), 32), drawTile(named("Etude"), 32));
}

TEST_F(TileDrawingTest, FitsItsTextInEverySize) {
  for (const int side : {16, 22, 24, 32, 48, 64}) {
    for (const int number : {8, 88, 888}) {
      const QImage tile = drawTile(numbered(number), side);
      ASSERT_EQ(tile.size(), QSize(side, side));
      const QImage edge = tile.copy(side >= 22 ? static_cast<int>(std::lround(side / 16.0)) : 0, side / 3, 1, side / 3);
      EXPECT_EQ(countPixels(edge, Qt::red), side / 3) << side << " " << number;
      EXPECT_GT(countPixels(tile, Qt::black, 90), 0) << side << " " << number;
    }
  }
}

TEST_F(TileDrawingTest, IsInTheColorOfATitleWithoutABackground) {
  const StatusButtonContent content{.title = {.text = " Mail ", .color = Color{1.0, 1.0, 0.0}}};
  const QImage tile = drawTile(content, 32);
  EXPECT_EQ(tile.pixelColor(5, 16), QColor(Qt::yellow));
  EXPECT_GT(countPixels(tile, Qt::black), 10);
}

TEST_F(TileDrawingTest, DrawsATemplateLightOnADarkRim) {
  Image icon{.size = {16.0, 16.0}, .isTemplate = true};
  icon.shapes.push_back({.bounds = {{4.0, 4.0}, {8.0, 8.0}}, .color = Color::black()});
  const QImage tile = drawTile({.title = {}, .image = icon}, 32);
  EXPECT_EQ(tile.pixelColor(16, 16), QColor(Qt::white));
  EXPECT_EQ(tile.pixelColor(0, 0).alpha(), 0);
  bool rimmed = false;
  for (int x = 0; x < 16; ++x) {
    rimmed = rimmed || (tile.pixelColor(x, 16).alpha() > 60 && tile.pixelColor(x, 16).lightness() < 60);
  }
  EXPECT_TRUE(rimmed);
}

TEST_F(TileDrawingTest, IsAsWideAsTheWholeNameWherePanelsKeepThat) {
  const QImage shorter = drawWideTile(named("Mail"), 22);
  const QImage longer = drawWideTile(named("Letters and parcels"), 22);
  EXPECT_EQ(shorter.height(), 22);
  EXPECT_GT(shorter.width(), 30);
  EXPECT_GT(longer.width(), 2 * shorter.width());
}

TEST_F(TileDrawingTest, DrawsATileWithoutAnyTitle) {
  EXPECT_EQ(drawTile({}, 16).size(), QSize(16, 16));
}

}  // namespace
}  // namespace roomlattice::tests
