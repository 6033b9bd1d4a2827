#include "menubar/SpaceRowView.h"

#include "tests/menubar/RowFixture.h"

#include <string>

namespace roomlattice::tests {
namespace {

using platform::Color;
using platform::FontWeight;
using platform::HitTarget;
using platform::Rect;
using platform::ShapeKind;

using SpaceRowViewTest = RowFixture;

// Sizes of texts: 6.5 points a character in the regular and 7.3125 in the semibold system font, 16.25 high.

TEST_F(SpaceRowViewTest, PlacesTheDotTheNameTheFieldAndThePencil) {
  const SpaceRowView& row = openRow("Mail");
  ASSERT_EQ(row.content().elements.size(), 4U);
  EXPECT_EQ(dot().frame, (Rect{{14.0, 5.0}, {14.0, 14.0}}));
  EXPECT_EQ(label().frame, (Rect{{38.0, 3.875}, {26.0, 16.25}}));
  EXPECT_EQ(fieldElement().frame, (Rect{{38.0, 2.0}, {172.0, 20.0}}));
  EXPECT_EQ(pencil().frame, (Rect{{192.0, 3.0}, {18.0, 18.0}}));
}

TEST_F(SpaceRowViewTest, KeepsItsMarginsInAWiderFrame) {
  SpaceRowView& row = openRow("Mail");
  row.setFrame({{}, {300.0, 30.0}});
  EXPECT_EQ(dot().frame, (Rect{{14.0, 8.0}, {14.0, 14.0}}));
  EXPECT_EQ(label().frame, (Rect{{38.0, 6.875}, {26.0, 16.25}}));
  EXPECT_EQ(fieldElement().frame, (Rect{{38.0, 5.0}, {252.0, 20.0}}));
  EXPECT_EQ(pencil().frame, (Rect{{272.0, 6.0}, {18.0, 18.0}}));
}

TEST_F(SpaceRowViewTest, ShowsTheNameAndNothingElseAtFirst) {
  const SpaceRowView& row = openRow("Mail");
  EXPECT_EQ(label().text, "Mail");
  EXPECT_EQ(label().color, platform::TextColor(platform::SystemColor::Label));
  EXPECT_FALSE(dot().hidden);
  EXPECT_FALSE(label().hidden);
  EXPECT_TRUE(fieldElement().hidden);
  EXPECT_TRUE(pencil().hidden);
  EXPECT_EQ(row.content().background, std::nullopt);
  EXPECT_EQ(row.content().cornerRadius, 4.0);
}

TEST_F(SpaceRowViewTest, ShowsTheActiveDesktopAsADiscAndASemiboldName) {
  openRow("Mail", Activity::Active);
  const platform::Image disc{
      .size = {14.0, 14.0},
      .shapes = {{.kind = ShapeKind::Ellipse, .bounds = {{0.0, 0.0}, {14.0, 14.0}}, .color = dotColor}}};
  EXPECT_EQ(dot().image, disc);
  EXPECT_EQ(label().font, (platform::Font{.size = 13.0, .weight = FontWeight::Semibold}));
  const platform::Font labelFont = label().font;
  EXPECT_EQ(fieldElement().font, labelFont);
  EXPECT_EQ(label().frame.size.width, 4 * 7.3125);
}

TEST_F(SpaceRowViewTest, ShowsAnotherDesktopAsARingAndARegularName) {
  openRow("Mail");
  const platform::Image ring{
      .size = {14.0, 14.0},
      .shapes = {
          {.kind = ShapeKind::Ellipse, .bounds = {{1.0, 1.0}, {12.0, 12.0}}, .color = dotColor, .lineWidth = 1.5}}};
  EXPECT_EQ(dot().image, ring);
  EXPECT_EQ(label().font, (platform::Font{.size = 13.0, .weight = FontWeight::Regular}));
  const platform::Font labelFont = label().font;
  EXPECT_EQ(fieldElement().font, labelFont);
}

TEST_F(SpaceRowViewTest, HasAPencilThatSaysWhatItDoes) {
  openRow("Mail");
  EXPECT_EQ(pencil().symbol, (platform::SymbolImage{"square.and.pencil", "Rename"}));
  EXPECT_EQ(pencil().toolTip, "Rename");
}

TEST_F(SpaceRowViewTest, EndsALongNameEightPointsBeforeThePencil) {
  struct Case {
    std::size_t characters;
    double width;
  };
  for (const auto& [characters, width] : {Case{22, 143.0}, Case{23, 146.0}, Case{5000, 146.0}}) {
    const std::string name(characters, 'm');
    makeRow(name);
    EXPECT_EQ(label().frame.size.width, width) << characters;
    EXPECT_EQ(label().text, name);
  }
}

TEST_F(SpaceRowViewTest, ShowsNamesOfAnyScript) {
  for (const std::string name : {"\u00dcbersicht", "\u6771\u4eac", "\u0645\u0643\u062a\u0628",
                                 "\U0001F469\u200D\U0001F4BB", "e\u0301", "a\tb"}) {
    makeRow(name);
    EXPECT_EQ(label().text, name);
  }
}

TEST_F(SpaceRowViewTest, HighlightsAndShowsThePencilUnderThePointer) {
  desktop.setAccentColor({1.0, 0.25, 0.5, 1.0});
  const SpaceRowView& row = openRow("Mail");
  user.entersRow(0);
  EXPECT_EQ(row.content().background, (Color{1.0, 0.25, 0.5, 0.18}));
  EXPECT_FALSE(pencil().hidden);
  user.leavesMenu();
  EXPECT_EQ(row.content().background, std::nullopt);
  EXPECT_TRUE(pencil().hidden);
}

TEST_F(SpaceRowViewTest, HighlightsInTheAccentColourOfTheMoment) {
  const SpaceRowView& row = openRow("Mail");
  user.entersRow(0);
  desktop.setAccentColor({0.5, 0.5, 0.5, 1.0});
  EXPECT_EQ(row.content().background, (Color{0.5, 0.5, 0.5, 0.18}));
}

TEST_F(SpaceRowViewTest, IsHitOnlyWithinItsBounds) {
  SpaceRowView& row = openRow("Mail");
  row.mouseEntered();
  for (const platform::Point inside : {platform::Point{0.0, 0.0}, {219.75, 23.75}, onDot, onLabel, onEmptySpace}) {
    EXPECT_EQ(row.hitTest(inside), HitTarget::View) << inside.x;
  }
  for (const platform::Point outside : {platform::Point{-0.25, 12.0}, {220.0, 12.0}, {110.0, -0.25}, {110.0, 24.0}}) {
    EXPECT_EQ(row.hitTest(outside), HitTarget::None) << outside.x;
  }
}

TEST_F(SpaceRowViewTest, IsHitOnThePencilOnlyWhileItIsShown) {
  SpaceRowView& row = openRow("Mail");
  EXPECT_EQ(row.hitTest(onPencil), HitTarget::View);
  row.mouseEntered();
  EXPECT_EQ(row.hitTest(onPencil), HitTarget::Button);
  EXPECT_EQ(row.hitTest({192.0, 3.0}), HitTarget::Button);
  EXPECT_EQ(row.hitTest({191.75, 12.0}), HitTarget::View);
  EXPECT_EQ(row.hitTest({210.0, 12.0}), HitTarget::View);
  EXPECT_EQ(row.hitTest({201.0, 2.75}), HitTarget::View);
  EXPECT_EQ(row.hitTest({201.0, 21.0}), HitTarget::View);
  row.mouseExited();
  EXPECT_EQ(row.hitTest(onPencil), HitTarget::View);
}

TEST_F(SpaceRowViewTest, IsHitOnTheFieldWhileItIsEdited) {
  const SpaceRowView& row = editRow("Mail");
  EXPECT_EQ(row.hitTest(onLabel), HitTarget::TextField);
  EXPECT_EQ(row.hitTest(onPencil), HitTarget::TextField);
  EXPECT_EQ(row.hitTest({38.0, 2.0}), HitTarget::TextField);
  EXPECT_EQ(row.hitTest({37.75, 12.0}), HitTarget::View);
  EXPECT_EQ(row.hitTest({210.0, 12.0}), HitTarget::View);
  EXPECT_EQ(row.hitTest({100.0, 22.0}), HitTarget::View);
  EXPECT_EQ(row.hitTest({100.0, 24.0}), HitTarget::None);
}

TEST_F(SpaceRowViewTest, SwitchesWhereverItIsClickedBesideThePencil) {
  int expected = 0;
  for (const platform::Point point : {onDot, onLabel, onEmptySpace}) {
    openRow("Mail");
    clicksRowAt(point);
    desktop.advance(1ms);
    EXPECT_EQ(switches, ++expected) << point.x;
  }
}

TEST_F(SpaceRowViewTest, SwitchesOnALaterTurnThanTheMenuCloses) {
  openRow("Mail");
  clicksRowAt(onLabel);
  EXPECT_EQ(desktop.menu(), nullptr);
  EXPECT_EQ(switches, 0);
  desktop.advance(0ms);
  EXPECT_EQ(switches, 1);
}

TEST_F(SpaceRowViewTest, SwitchesAlthoughItHasGoneByThen) {
  openRow("Mail");
  clicksRowAt(onLabel);
  destroyRow();
  desktop.advance(1ms);
  EXPECT_EQ(switches, 1);
}

TEST_F(SpaceRowViewTest, SwitchesToWhatItWasToldWhenItWasClicked) {
  SpaceRowView& row = openRow("Mail");
  clicksRowAt(onLabel);
  row.onSwitch = nullptr;
  desktop.advance(1ms);
  EXPECT_EQ(switches, 1);
}

TEST_F(SpaceRowViewTest, OnlyClosesTheMenuWithoutACallback) {
  openRow("Mail").onSwitch = nullptr;
  clicksRowAt(onLabel);
  EXPECT_EQ(desktop.menu(), nullptr);
  desktop.advance(1s);
  EXPECT_EQ(switches, 0);
}

TEST_F(SpaceRowViewTest, NeverSwitchesForAClickOnThePencil) {
  SpaceRowView& row = openRow("Mail");
  user.entersRow(0);
  row.mouseUp(onPencil);
  user.clicksRowButton(0);
  desktop.advance(1s);
  EXPECT_NE(desktop.menu(), nullptr);
  EXPECT_EQ(switches, 0);
  EXPECT_TRUE(isEditing());
}

TEST_F(SpaceRowViewTest, SwitchesForAClickWhereThePencilIsHidden) {
  SpaceRowView& row = openRow("Mail");
  row.mouseUp(onPencil);
  desktop.advance(1ms);
  EXPECT_EQ(switches, 1);
}

TEST_F(SpaceRowViewTest, GivesNameAndFieldNoWidthInARowNarrowerThanTheRest) {
  makeRow("Mail").setFrame({{}, {40.0, 24.0}});
  EXPECT_EQ(label().frame.size.width, 0.0);
  EXPECT_EQ(fieldElement().frame.size.width, 0.0);
}

}  // namespace
}  // namespace roomlattice::tests
