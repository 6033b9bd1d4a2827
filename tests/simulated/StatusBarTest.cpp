#include "platform/simulated/StatusBar.h"

#include "tests/support/SimulatedFixture.h"
#include "tests/support/TestView.h"

#include <memory>

namespace roomlattice::tests {
namespace {

using platform::Menu;
using platform::StatusItem;
using platform::ViewItem;

class StatusBarTest : public SimulatedFixture {
 protected:
  StatusBarTest() : item_(platform().userInterface().createStatusItem(platform::FixedLength{100.0})) {}

  Menu menu_;
  std::unique_ptr<StatusItem> item_;
};

TEST_F(StatusBarTest, ShowsItemsAsLongAsTheyLive) {
  EXPECT_EQ(desktop.statusBar().items().size(), 1U);
  item_.reset();
  EXPECT_EQ(desktop.statusItem(), nullptr);
}

TEST_F(StatusBarTest, OpensAndClosesTheMenuOfAnItemByClicks) {
  item_->setMenu(&menu_);
  user.clicksStatusItem();
  EXPECT_NE(desktop.menu(), nullptr);
  user.clicksStatusItem();
  EXPECT_EQ(desktop.menu(), nullptr);
}

TEST_F(StatusBarTest, BringsTheMenuUpToDateAtEveryOpening) {
  int updates = 0;
  menu_.needsUpdate = [&](Menu&) { ++updates; };
  item_->setMenu(&menu_);
  user.clicksStatusItem();
  user.clicksStatusItem();
  EXPECT_EQ(updates, 1);
  user.clicksStatusItem();
  EXPECT_EQ(updates, 2);
}

TEST_F(StatusBarTest, LetsAnUpdateDestroyTheRowsOfTheLastOpening) {
  menu_.needsUpdate = [&](Menu& menu) {
    menu.items.clear();
    menu.items.emplace_back(ViewItem{.view = std::make_unique<TestView>()});
  };
  item_->setMenu(&menu_);
  user.clicksStatusItem();
  desktop.menu()->view(0)->host()->cancelMenuTracking();
  user.clicksStatusItem();
  EXPECT_NE(desktop.menu()->view(0)->host(), nullptr);
}

TEST_F(StatusBarTest, OpensNothingWithoutAMenu) {
  user.clicksStatusItem();
  EXPECT_EQ(desktop.menu(), nullptr);
}

TEST_F(StatusBarTest, OpensNothingWithoutAButton) {
  desktop.faults.statusButtonMissing = true;
  EXPECT_EQ(item_->button(), nullptr);
  item_->setMenu(&menu_);
  user.clicksStatusItem();
  EXPECT_EQ(desktop.menu(), nullptr);
}

TEST_F(StatusBarTest, ClosesTheMenuWithItsItem) {
  item_->setMenu(&menu_);
  user.clicksStatusItem();
  item_.reset();
  EXPECT_EQ(desktop.menu(), nullptr);
}

TEST_F(StatusBarTest, ClosesTheMenuWhenTheItemGetsAnother) {
  Menu other;
  item_->setMenu(&menu_);
  user.clicksStatusItem();
  item_->setMenu(&other);
  EXPECT_EQ(desktop.menu(), nullptr);
  item_->setMenu(nullptr);
}

}  // namespace
}  // namespace roomlattice::tests
