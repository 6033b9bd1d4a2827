#include "platform/simulated/MenuSession.h"

#include "tests/support/SimulatedFixture.h"
#include "tests/support/TestView.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::CommandItem;
using platform::Menu;
using platform::SeparatorItem;
using platform::ViewItem;

/// A status item whose menu has two rows (0 and 1), a separator, "Open…" with the key "o", and "Nothing".
class MenuSessionTest : public SimulatedFixture {
 protected:
  MenuSessionTest() : item_(platform().userInterface().createStatusItem(platform::FixedLength{100.0})) {
    menu_.needsUpdate = [this](Menu& menu) { fill(menu); };
    item_->setMenu(&menu_);
    user.clicksStatusItem();
  }

  void fill(Menu& menu) {
    menu.items.clear();
    for (TestView*& row : rows_) {
      auto view = std::make_unique<TestView>();
      row = view.get();
      menu.items.emplace_back(ViewItem{.view = std::move(view)});
    }
    menu.items.emplace_back(SeparatorItem{});
    menu.items.emplace_back(CommandItem{.title = "Open…", .keyEquivalent = "o", .action = [this] {
                                          wasOpenAtAction_ = desktop.menu() != nullptr;
                                          ++actions_;
                                        }});
    menu.items.emplace_back(CommandItem{.title = "Nothing"});
  }

  bool isOpen() { return desktop.menu() != nullptr; }

  Menu menu_;
  TestView* rows_[2] = {};
  int actions_ = 0;
  bool wasOpenAtAction_ = false;
  std::unique_ptr<platform::StatusItem> item_;
};

TEST_F(MenuSessionTest, ShowsTheItemsFromTheTopInOrder) {
  const auto menu = desktop.menu();
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(menu->items().size(), 5U);
  EXPECT_EQ(menu->titles(), (std::vector<std::string>{"", "", "", "Open…", "Nothing"}));
  EXPECT_EQ(menu->frame().size, (platform::Size{300.0, 30.0 + 30.0 + 12.0 + 22.0 + 22.0}));
  EXPECT_EQ(menu->frame().maxY(), 876.0);
  EXPECT_EQ(menu->rowFrame(0).maxY(), 876.0);
  EXPECT_EQ(menu->rowFrame(1).maxY(), menu->rowFrame(0).minY());
  EXPECT_EQ(menu->rowFrame(4).minY(), menu->frame().minY());
}

TEST_F(MenuSessionTest, FindsTheRowAtAPoint) {
  const auto menu = desktop.menu();
  EXPECT_EQ(menu->rowAt({menu->frame().midX(), menu->frame().maxY() - 31.0}), 1U);
  EXPECT_EQ(menu->rowAt({menu->frame().midX(), menu->frame().minY() - 1.0}), std::nullopt);
}

TEST_F(MenuSessionTest, EntersAndLeavesRowsWithThePointer) {
  user.entersRow(0);
  EXPECT_TRUE(rows_[0]->hovered);
  user.entersRow(1);
  EXPECT_FALSE(rows_[0]->hovered);
  EXPECT_TRUE(rows_[1]->hovered);
  user.entersRow(3);
  EXPECT_FALSE(rows_[1]->hovered);
  user.entersRow(1);
  user.leavesMenu();
  EXPECT_FALSE(rows_[1]->hovered);
  EXPECT_TRUE(isOpen());
}

TEST_F(MenuSessionTest, EntersARowOnceWhileThePointerStaysInIt) {
  user.entersRow(0);
  rows_[0]->hovered = false;
  user.clicksRow(0, {10.0, 10.0});
  EXPECT_FALSE(rows_[0]->hovered);
}

TEST_F(MenuSessionTest, HandsClicksToRowsInTheirOwnCoordinates) {
  user.clicksRow(1, {20.0, 5.0});
  EXPECT_EQ(rows_[1]->clicks, (std::vector<platform::Point>{{20.0, 5.0}}));
  EXPECT_TRUE(rows_[0]->clicks.empty());
  EXPECT_TRUE(isOpen());
}

TEST_F(MenuSessionTest, ClicksTheButtonOfARow) {
  user.clicksRowButton(1);
  EXPECT_EQ(rows_[1]->buttonClicks, 1);
}

TEST_F(MenuSessionTest, ClosesWhenARowSaysSo) {
  rows_[0]->onMouseUp = [this] { rows_[0]->host()->cancelMenuTracking(); };
  user.clicksRow(0, {20.0, 5.0});
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(rows_[0]->host(), nullptr);
}

TEST_F(MenuSessionTest, ClosesBeforeACommandActs) {
  user.clicksCommand("Open…");
  EXPECT_EQ(actions_, 1);
  EXPECT_FALSE(wasOpenAtAction_);
  EXPECT_FALSE(isOpen());
}

TEST_F(MenuSessionTest, AllowsACommandWithoutAnAction) {
  user.clicksCommand("Nothing");
  EXPECT_FALSE(isOpen());
}

TEST_F(MenuSessionTest, ClosesAtAClickBesideIt) {
  user.clicks({10.0, 10.0});
  EXPECT_FALSE(isOpen());
}

TEST_F(MenuSessionTest, StaysAtAClickOnASeparator) {
  user.clicksRow(2);
  EXPECT_TRUE(isOpen());
}

TEST_F(MenuSessionTest, ActsOnKeyEquivalentsWithTheCommandKeyOnly) {
  user.types("o");
  EXPECT_EQ(actions_, 0);
  user.pressesCommandKey("x");
  EXPECT_TRUE(isOpen());
  user.pressesCommandKey("o");
  EXPECT_EQ(actions_, 1);
  EXPECT_FALSE(isOpen());
}

TEST_F(MenuSessionTest, ClosesAtEscape) {
  user.pressesKey(platform::keyCode::escape);
  EXPECT_FALSE(isOpen());
}

TEST_F(MenuSessionTest, TypesIntoTheFieldThatIsEdited) {
  rows_[1]->host()->textField()->focusAndSelectAll();
  EXPECT_EQ(desktop.menu()->focusedField(), desktop.menu()->textField(1));
  user.types("Größe");
  EXPECT_EQ(desktop.menu()->textField(1)->text(), "Größe");
  user.pressesKey(platform::keyCode::escape);
  EXPECT_EQ(rows_[1]->commands, std::vector{platform::EditCommand::Cancel});
  EXPECT_TRUE(isOpen()) << "Escape went to the field";
}

TEST_F(MenuSessionTest, LetsAMonitorTakeKeysBeforeTheField) {
  rows_[0]->host()->textField()->focusAndSelectAll();
  const auto monitor = platform().events().monitorLocalKeyDown(
      [](const platform::KeyEvent&) { return platform::KeyDisposition::Swallow; });
  user.types("a");
  EXPECT_EQ(desktop.menu()->textField(0)->text(), "");
}

TEST_F(MenuSessionTest, EditsOneFieldAtATime) {
  rows_[0]->host()->textField()->focusAndSelectAll();
  user.clicksRow(1, {250.0, 10.0});
  EXPECT_FALSE(desktop.menu()->textField(0)->isEditing());
  EXPECT_EQ(desktop.menu()->focusedField(), desktop.menu()->textField(1));
}

TEST_F(MenuSessionTest, HasAViewAndAFieldInViewRowsOnly) {
  const auto menu = desktop.menu();
  EXPECT_EQ(menu->view(0), rows_[0]);
  EXPECT_NE(menu->textField(0), nullptr);
  EXPECT_EQ(menu->view(2), nullptr);
  EXPECT_EQ(menu->textField(3), nullptr);
  EXPECT_EQ(menu->view(99), nullptr);
}

}  // namespace
}  // namespace roomlattice::tests
