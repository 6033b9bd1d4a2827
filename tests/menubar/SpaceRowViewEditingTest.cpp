#include "tests/menubar/RowFixture.h"

#include <string>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::CommandDisposition;
using platform::EditCommand;
using platform::KeyDisposition;
namespace keyCode = platform::keyCode;

using Renames = std::vector<std::string>;

class SpaceRowViewEditingTest : public RowFixture {
 protected:
  /// What the program makes of a key, if it is not meant for a field of its own.
  KeyDisposition presses(std::uint16_t code) {
    return desktop.events().listener()->keyPressed(platform::simulated::SimulatedKeyEvent(code));
  }
};

TEST_F(SpaceRowViewEditingTest, ReplacesTheNameByAFieldWithAllOfItSelected) {
  editRow("Mail");
  EXPECT_TRUE(label().hidden);
  EXPECT_TRUE(pencil().hidden);
  EXPECT_FALSE(fieldElement().hidden);
  EXPECT_EQ(field().text(), "Mail");
  EXPECT_TRUE(field().isEditing());
  EXPECT_TRUE(field().isAllSelected());
}

TEST_F(SpaceRowViewEditingTest, DoesNotBeginAgainForAnotherClickOnThePencil) {
  SpaceRowView& row = editRow("Mail");
  user.types("Post");
  row.buttonClicked();
  EXPECT_EQ(field().text(), "Post");
}

TEST_F(SpaceRowViewEditingTest, TakesPlaceWithoutAWindowTooWithTheNameAsItWas) {
  makeRow("Mail").buttonClicked();
  EXPECT_TRUE(isEditing());
  EXPECT_EQ(presses(49), KeyDisposition::PassOn);
  EXPECT_EQ(presses(keyCode::returnKey), KeyDisposition::Swallow);
  EXPECT_FALSE(isEditing());
  EXPECT_EQ(label().text, "Mail");
  EXPECT_EQ(renames, Renames{"Mail"});
}

TEST_F(SpaceRowViewEditingTest, EndsWithReturnAndKeypadEnter) {
  Renames expected;
  for (const std::uint16_t key : {std::uint16_t{36}, std::uint16_t{76}}) {
    editRow("Mail");
    user.types("Post");
    user.pressesKey(key);
    expected.emplace_back("Post");
    EXPECT_EQ(renames, expected) << key;
    EXPECT_FALSE(isEditing());
    EXPECT_EQ(label().text, "Post");
    EXPECT_NE(desktop.menu(), nullptr);
    user.clicksStatusItem();
  }
}

TEST_F(SpaceRowViewEditingTest, HandsOutAndShowsBlanksAsTheyWereTyped) {
  editRow("Mail");
  user.types("  Post  ");
  user.pressesKey(keyCode::returnKey);
  EXPECT_EQ(label().text, "  Post  ");
  EXPECT_EQ(renames, Renames{"  Post  "});
}

TEST_F(SpaceRowViewEditingTest, ShowsTheOldNameForABlankOneAndHandsItOut) {
  Renames expected;
  for (const std::string blank : {"", " ", "  \t ", "\u00A0", "\u2003\u3000", "\n"}) {
    editRow("Mail");
    clearsField();
    user.types(blank);
    user.pressesKey(keyCode::keypadEnter);
    expected.push_back(blank);
    EXPECT_EQ(label().text, "Mail");
    EXPECT_EQ(renames, expected);
    user.clicksStatusItem();
  }
}

TEST_F(SpaceRowViewEditingTest, TakesLongAndExoticNames) {
  const std::string family = "\U0001F468\u200D\U0001F469\u200D\U0001F467";
  Renames expected;
  for (const std::string& name : {std::string(2000, 'x'), std::string("\u5de5\u4f5c"), family, std::string("e\u0301"),
                                  std::string("\u202E\u05D0\u05D1")}) {
    editRow("Mail");
    user.types(name);
    user.pressesKey(keyCode::returnKey);
    expected.push_back(name);
    EXPECT_EQ(label().text, name);
    EXPECT_LE(label().frame.size.width, 146.0);
    user.clicksStatusItem();
  }
  EXPECT_EQ(renames, expected);
}

TEST_F(SpaceRowViewEditingTest, IsGivenUpWithEscapeWhileTheMenuStays) {
  editRow("Mail");
  user.types("Post");
  user.pressesKey(53);
  EXPECT_FALSE(isEditing());
  EXPECT_EQ(label().text, "Mail");
  EXPECT_TRUE(renames.empty());
  EXPECT_NE(desktop.menu(), nullptr);
  user.pressesKey(keyCode::escape);
  EXPECT_EQ(desktop.menu(), nullptr);
}

TEST_F(SpaceRowViewEditingTest, KeepsTheNewNameWhenALaterEditIsGivenUp) {
  editRow("Mail");
  user.types("Post");
  user.pressesKey(keyCode::returnKey);
  user.leavesMenu();
  user.clicksRowButton(0);
  user.types("Letters");
  user.pressesKey(keyCode::escape);
  EXPECT_EQ(label().text, "Post");
}

TEST_F(SpaceRowViewEditingTest, StartsFromTheNameTheRowWasMadeWith) {
  editRow("Mail");
  user.types("Post");
  user.pressesKey(keyCode::returnKey);
  user.leavesMenu();
  user.clicksRowButton(0);
  EXPECT_EQ(field().text(), "Mail");
  clearsField();
  user.pressesKey(keyCode::returnKey);
  EXPECT_EQ(label().text, "Mail");
  EXPECT_EQ(renames, (Renames{"Post", ""}));
}

TEST_F(SpaceRowViewEditingTest, TakesTheKeysOnlyWhileItLasts) {
  openRow("Mail");
  EXPECT_EQ(presses(keyCode::returnKey), KeyDisposition::PassOn);
  user.clicksRowButton(0);
  for (const std::uint16_t key : {std::uint16_t{0}, std::uint16_t{49}, std::uint16_t{123}}) {
    EXPECT_EQ(presses(key), KeyDisposition::Swallow) << key;
  }
  EXPECT_EQ(presses(keyCode::escape), KeyDisposition::Swallow);
  for (const std::uint16_t key : {keyCode::keypadEnter, keyCode::escape, keyCode::returnKey, std::uint16_t{0}}) {
    EXPECT_EQ(presses(key), KeyDisposition::PassOn) << key;
  }
}

TEST_F(SpaceRowViewEditingTest, LeavesOtherKeysAloneWhileTheFieldIsNotFocused) {
  editRow("Mail");
  field().endEditing();
  EXPECT_EQ(presses(49), KeyDisposition::PassOn);
  EXPECT_EQ(presses(keyCode::returnKey), KeyDisposition::Swallow);
  EXPECT_EQ(renames, Renames{"Mail"});
}

TEST_F(SpaceRowViewEditingTest, FollowsTheCommandsOfTheFieldsEditor) {
  SpaceRowView& row = editRow("Mail");
  user.types("Post");
  EXPECT_EQ(row.doCommand(EditCommand::InsertNewline), CommandDisposition::Handled);
  EXPECT_EQ(renames, Renames{"Post"});
  EXPECT_FALSE(isEditing());
  user.leavesMenu();
  user.clicksRowButton(0);
  EXPECT_EQ(row.doCommand(EditCommand::Cancel), CommandDisposition::Handled);
  EXPECT_FALSE(isEditing());
  EXPECT_EQ(renames, Renames{"Post"});
}

TEST_F(SpaceRowViewEditingTest, IsNotStartedByCommandsOfTheFieldsEditor) {
  SpaceRowView& row = openRow("Mail");
  row.doCommand(EditCommand::InsertNewline);
  row.doCommand(EditCommand::Cancel);
  EXPECT_TRUE(renames.empty());
  EXPECT_FALSE(isEditing());
}

TEST_F(SpaceRowViewEditingTest, KeepsTheHighlightUntilThePointerLeavesAfterwards) {
  const SpaceRowView& row = editRow("Mail");
  const auto highlight = row.content().background;
  EXPECT_NE(highlight, std::nullopt);
  user.leavesMenu();
  EXPECT_EQ(row.content().background, highlight);
  user.pressesKey(keyCode::escape);
  EXPECT_EQ(row.content().background, highlight);
  EXPECT_TRUE(pencil().hidden);
  user.entersRow(0);
  EXPECT_FALSE(pencil().hidden);
  user.leavesMenu();
  EXPECT_EQ(row.content().background, std::nullopt);
  EXPECT_TRUE(pencil().hidden);
}

TEST_F(SpaceRowViewEditingTest, IsNotDisturbedByThePointer) {
  SpaceRowView& row = openRow("Mail");
  row.buttonClicked();
  user.entersRow(0);
  EXPECT_EQ(row.content().background, std::nullopt);
  EXPECT_TRUE(pencil().hidden);
  EXPECT_TRUE(isEditing());
}

TEST_F(SpaceRowViewEditingTest, IgnoresClicksBesideTheField) {
  editRow("Mail");
  user.types("Post");
  for (const platform::Point point : {onDot, platform::Point{215.0, 12.0}, platform::Point{100.0, 23.0}}) {
    clicksRowAt(point);
  }
  desktop.advance(1s);
  EXPECT_EQ(switches, 0);
  EXPECT_TRUE(isEditing());
  EXPECT_EQ(field().text(), "Post");
  EXPECT_NE(desktop.menu(), nullptr);
}

TEST_F(SpaceRowViewEditingTest, GivesClicksInTheFieldToTheField) {
  editRow("Mail");
  clicksRowAt(onLabel);
  EXPECT_FALSE(field().isAllSelected());
  user.types("box");
  user.pressesKey(keyCode::returnKey);
  EXPECT_EQ(renames, Renames{"Mailbox"});
}

TEST_F(SpaceRowViewEditingTest, SwitchesAgainAfterwards) {
  editRow("Mail");
  user.pressesKey(keyCode::escape);
  clicksRowAt(onLabel);
  desktop.advance(1ms);
  EXPECT_EQ(switches, 1);
}

TEST_F(SpaceRowViewEditingTest, NeedsNoCallback) {
  editRow("Mail").onCommitRename = nullptr;
  user.types("Post");
  user.pressesKey(keyCode::returnKey);
  EXPECT_EQ(label().text, "Post");
  EXPECT_TRUE(renames.empty());
}

TEST_F(SpaceRowViewEditingTest, HasEndedWhenTheNewNameIsHandedOut) {
  SpaceRowView& row = editRow("Mail");
  bool wasEditing = true;
  KeyDisposition key = KeyDisposition::Swallow;
  row.onCommitRename = [&](const std::string&) {
    wasEditing = isEditing();
    key = presses(keyCode::returnKey);
  };
  user.pressesKey(keyCode::returnKey);
  EXPECT_FALSE(wasEditing);
  EXPECT_EQ(key, KeyDisposition::PassOn);
}

TEST_F(SpaceRowViewEditingTest, IsLostWhenTheMenuCloses) {
  for (const std::uint16_t key : {keyCode::returnKey, keyCode::keypadEnter, keyCode::escape, std::uint16_t{0}}) {
    editRow("Mail");
    user.types("Post");
    user.clicks({10.0, 10.0});
    ASSERT_EQ(desktop.menu(), nullptr);
    EXPECT_EQ(presses(key), KeyDisposition::PassOn) << key;
  }
  EXPECT_TRUE(renames.empty());
}

TEST_F(SpaceRowViewEditingTest, LetsGoOfTheKeysWithTheRow) {
  editRow("Mail");
  user.clicksStatusItem();
  destroyRow();
  EXPECT_EQ(presses(keyCode::returnKey), KeyDisposition::PassOn);
  EXPECT_TRUE(renames.empty());
}

}  // namespace
}  // namespace roomlattice::tests
