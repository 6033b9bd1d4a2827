#include "platform/x11/statusitem/FloatingItem.h"

#include "tests/x11/statusitem/FloatingItemFixture.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>

namespace roomlattice::tests {
namespace {

using platform::Color;
using platform::FixedLength;
using platform::SquareLength;
using platform::StatusButtonContent;
using platform::StatusItem;

class FloatingItemTest : public FloatingItemFixture {};

TEST_F(FloatingItemTest, IsAsWideAsHighInSquareLength) {
  show({.image = squareIcon()}, SquareLength{});
  EXPECT_TRUE(standsInTheMiddle(height));
}

TEST_F(FloatingItemTest, HasExactlyTheFixedWidthWhateverItsTitle) {
  StatusItem& item = show(redTitle(" M "), FixedLength{140.0});
  EXPECT_TRUE(standsInTheMiddle(140));
  item.button()->setContent(redTitle(" A title that is a good deal longer than it has room for "));
  item.setLength(FixedLength{141.0});
  EXPECT_TRUE(standsInTheMiddle(141));
}

TEST_F(FloatingItemTest, StaysAsItIsForATitleThatFillsMostOfIt) {
  StatusItem& item = show(redTitle(" Letters "));
  const int width = titleWidth(" Letters ");
  ASSERT_TRUE(standsInTheMiddle(width));
  ASSERT_LT(titleWidth(" Letter "), width);
  StatusButtonContent blue = redTitle(" Letter ");
  blue.background = Color{0.0, 0.0, 1.0};
  item.button()->setContent(blue);
  EXPECT_TRUE(waitFor([&] { return similar(colorAtTheEnd(width), Qt::blue); }));
  EXPECT_TRUE(standsInTheMiddle(width));
  item.button()->setContent(redTitle(" Me "));
  EXPECT_TRUE(standsInTheMiddle(titleWidth(" Me ")));
}

TEST_F(FloatingItemTest, IsNeverWiderThanTheScreen) {
  show(redTitle(std::string(1000, 'W')));
  EXPECT_TRUE(standsInTheMiddle(screenWidth));
}

TEST_F(FloatingItemTest, GoesToTheMiddleOfAResizedScreen) {
  ui_.session.changesMonitors();
  show(redTitle(" Mail "));
  ASSERT_TRUE(standsInTheMiddle(titleWidth(" Mail ")));
  ui_.session.run({"xrandr", "--newmode", "smaller", "36", "800", "824", "896", "1024", "600", "601", "603", "625"});
  ui_.session.run({"xrandr", "--addmode", "screen", "smaller"});
  ui_.session.run({"xrandr", "--output", "screen", "--mode", "smaller"});
  const int width = titleWidth(" Mail ");
  EXPECT_TRUE(comesToStandAt({static_cast<int>(std::lround((800 - width) / 2.0)), 0, width, height}));
}

TEST_F(FloatingItemTest, IsAllBackgroundWithRoundedCornersAndTheTitleInItsColor) {
  show({.title = {.text = " Mail ", .color = Color{0.0, 0.0, 1.0}},
        .background = Color{1.0, 0.0, 0.0},
        .cornerRadius = 3.0});
  const QRect frame = middleOfTheTop(titleWidth(" Mail "));
  ASSERT_TRUE(waitFor([&] { return similar(colorAtTheEnd(frame.width()), red); }));
  const QImage image = screenImage(ui_.connection(), frame);
  EXPECT_TRUE(similar(image.pixelColor(frame.width() / 2, 0), red));
  EXPECT_TRUE(similar(image.pixelColor(frame.width() / 2, height - 1), red));
  EXPECT_FALSE(similar(image.pixelColor(0, 0), red));
  EXPECT_GT(countPixels(image, Qt::blue, 40), 10);
}

TEST_F(FloatingItemTest, LiesOnThePlateOfTheBarWhereItHasNoBackground) {
  ui_.session.run({"hsetroot", "-solid", "#0000ff"});
  show({.title = {.text = " Mail ", .color = Color{0.0, 0.0, 1.0}}});
  const QRect frame = middleOfTheTop(titleWidth(" Mail "));
  EXPECT_TRUE(waitFor([&] { return similar(colorAtTheEnd(frame.width()), QColor(246, 246, 247)); }));
}

TEST_F(FloatingItemTest, DrawsATemplateImageInTheBarsTextColor) {
  show({.title = {}, .image = squareIcon()}, SquareLength{});
  ASSERT_TRUE(standsInTheMiddle(height));
  // Light without any setting: dark text. The icon has its whole 16 points, with sharp edges.
  const auto darkPixels = [this] {
    return countPixels(screenImage(ui_.connection(), middleOfTheTop(height)), QColor(28, 28, 30));
  };
  EXPECT_TRUE(waitFor([&] { return darkPixels() == 16 * 16; })) << darkPixels();
}

TEST_F(FloatingItemTest, LeavesTheScreenWithItsObject) {
  show(redTitle(" Mail "));
  const int width = titleWidth(" Mail ");
  ASSERT_TRUE(waitFor([&] { return similar(colorAtTheEnd(width), red); }));
  item_.reset();
  EXPECT_TRUE(waitFor([&] { return !similar(colorAtTheEnd(width), red); }));
}

TEST_F(FloatingItemTest, ReservesNoEdgeUnlessAskedTo) {
  show(redTitle(" Mail "));
  ASSERT_TRUE(waitFor([this] { return probe().isViewable(); }));
  EXPECT_EQ(probe().number("_NET_WM_STRUT"), std::nullopt);
}

TEST_F(FloatingItemTest, SwitchesToTheNeighbourWhenTheWheelTurns) {
  show(redTitle(" Mail "));
  ASSERT_TRUE(standsInTheMiddle(titleWidth(" Mail ")));
  ui_.session.run({"xdotool", "mousemove", "--sync", std::to_string(screenWidth / 2), "12", "click", "5"});
  EXPECT_TRUE(waitFor([this] { return ui_.session.currentDesktop() == 1; }));
  ui_.session.run({"xdotool", "click", "4"});
  EXPECT_TRUE(waitFor([this] { return ui_.session.currentDesktop() == 0; }));
}

TEST_F(FloatingItemTest, OpensItsOwnMenuByTheRightButton) {
  show(redTitle(" Mail "));
  ASSERT_TRUE(standsInTheMiddle(titleWidth(" Mail ")));
  ui_.session.run({"xdotool", "mousemove", "--sync", std::to_string(screenWidth / 2), "12", "click", "3"});
  ASSERT_TRUE(waitFor([] { return QApplication::activePopupWidget() != nullptr; }));
  QStringList titles;
  for (const QAction* action : QApplication::activePopupWidget()->actions()) {
    titles << action->text();
  }
  EXPECT_TRUE(titles.contains(QStringLiteral("Keep the Edge Free"))) << titles.join(u',').toStdString();
}

TEST_F(FloatingItemTest, IsAButtonWithANameForThoseWhoCannotSeeIt) {
  platform::Menu menu;
  menu.items.emplace_back(platform::CommandItem{"Command", "", [] {}});
  show(redTitle(" Mail ")).setMenu(&menu);
  ASSERT_TRUE(standsInTheMiddle(titleWidth(" Mail ")));
  QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(floating());
  ASSERT_NE(interface, nullptr);
  EXPECT_EQ(interface->role(), QAccessible::Button);
  EXPECT_EQ(interface->text(QAccessible::Name), QStringLiteral("Mail"));
  interface->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_TRUE(waitFor([] { return QApplication::activePopupWidget() != nullptr; }));
}

TEST_F(FloatingItemTest, TellsTheWholeTitleWhereItIsCut) {
  show(redTitle(" <b>Letters</b> "), FixedLength{30.0});
  ASSERT_TRUE(standsInTheMiddle(30));
  EXPECT_EQ(floating()->toolTip(), QStringLiteral("<span>&lt;b&gt;Letters&lt;/b&gt;</span>"));
}

TEST_F(FloatingItemTest, IsNeverTooNarrowToHit) {
  show(redTitle("i"));
  EXPECT_TRUE(standsInTheMiddle(height));
}

/// To be set before the Qt application is made.
struct DoubleScale {
  DoubleScale() { environment.set("QT_SCALE_FACTOR", "2"); }
  Environment environment;
};

class FloatingItemScaledTest : DoubleScale, public FloatingItemFixture {};

TEST_F(FloatingItemScaledTest, TakesTwoPixelsForAPoint) {
  show({.title = {}, .image = squareIcon()}, SquareLength{});
  const QRect frame(screenWidth / 2 - height, 0, 2 * height, 2 * height);
  ASSERT_TRUE(comesToStandAt(frame));
  const auto darkPixels = [&] { return countPixels(screenImage(ui_.connection(), frame), QColor(28, 28, 30)); };
  EXPECT_TRUE(waitFor([&] { return darkPixels() == 32 * 32; })) << darkPixels();
}

}  // namespace
}  // namespace roomlattice::tests
