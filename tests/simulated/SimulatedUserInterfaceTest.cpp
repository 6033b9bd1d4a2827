#include "platform/simulated/SimulatedUserInterface.h"

#include "platform/simulated/TextMetrics.h"
#include "tests/support/SimulatedFixture.h"

#include <vector>

namespace roomlattice::tests {
namespace {

using platform::Appearance;
using platform::Rect;
using platform::Screen;

class SimulatedUserInterfaceTest : public SimulatedFixture {
 protected:
  platform::UserInterface& ui() { return platform().userInterface(); }
};

constexpr Rect left{{0.0, 0.0}, {1000.0, 500.0}};
constexpr Rect right{{1000.0, 0.0}, {800.0, 600.0}};

TEST_F(SimulatedUserInterfaceTest, KnowsTheScreensAndTheMainOne) {
  desktop.setScreens({left, right});
  EXPECT_EQ(ui().screens(), (std::vector<Screen>{{left}, {right}}));
  EXPECT_EQ(ui().mainScreen(), Screen{left});
  desktop.setMainScreen(1);
  EXPECT_EQ(ui().mainScreen(), Screen{right});
}

TEST_F(SimulatedUserInterfaceTest, KnowsNoMainScreenWhereNoneHasTheKeyboard) {
  desktop.setMainScreen(std::nullopt);
  EXPECT_EQ(ui().mainScreen(), std::nullopt);
  EXPECT_EQ(ui().screens().size(), 1U);
  desktop.setScreens({});
  EXPECT_EQ(ui().mainScreen(), std::nullopt);
  EXPECT_TRUE(ui().screens().empty());
}

TEST_F(SimulatedUserInterfaceTest, FollowsTheAppearanceAndTheAccentColor) {
  EXPECT_EQ(ui().effectiveAppearance(), Appearance::Light);
  desktop.setAppearance(Appearance::Dark);
  EXPECT_EQ(ui().effectiveAppearance(), Appearance::Dark);
  desktop.setAppearance(std::nullopt);
  EXPECT_EQ(ui().effectiveAppearance(), std::nullopt);
  desktop.setAccentColor({1.0, 0.0, 0.0});
  EXPECT_EQ(ui().accentColor(), (platform::Color{1.0, 0.0, 0.0}));
}

TEST_F(SimulatedUserInterfaceTest, MeasuresInTheSimulatedFont) {
  const platform::Font font{.size = 160.0, .weight = platform::FontWeight::Heavy};
  EXPECT_EQ(ui().measure("Mail", font), (platform::Size{400.0, 200.0}));
  EXPECT_EQ(ui().intrinsicSize(platform::SliderControl{}), (platform::Size{96.0, 20.0}));
  EXPECT_EQ(ui().systemFontSize(), 13.0);
}

TEST_F(SimulatedUserInterfaceTest, MakesWindowsWithoutAnyScreen) {
  desktop.setScreens({});
  const auto window = ui().createTabbedWindow({.contentSize = {500.0, 400.0}});
  window->show();
  EXPECT_TRUE(desktop.tabbedWindow()->isVisible());
}

}  // namespace
}  // namespace roomlattice::tests
