#include "menubar/MenuBarController.h"
#include "menubar/SpaceRowView.h"
#include "preferences/PreferencesStore.h"
#include "preferences/PreferencesWindowController.h"
#include "spaces/SpaceManager.h"
#include "spaces/SpaceObserver.h"
#include "tests/support/ShownElement.h"
#include "tests/support/SimulatedFixture.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace roomlattice::tests {
namespace {

using platform::CommandItem;
using platform::MenuItem;
using platform::SeparatorItem;
using platform::ViewItem;

using Texts = std::vector<std::string>;

const Texts commands{"-", "Preferences\u2026", "-", "Quit Plinkhaven"};

/// The status item over the model and what keeps the model up to date.
class DesktopMenuTest : public SimulatedFixture {
 protected:
  void openMenu() {
    if (!controller_) {
      start();
    }
    if (desktop.menu() != nullptr) {
      user.clicksStatusItem();
    }
    user.clicksStatusItem();
  }

  void start() {
    observer_.emplace(platform().windowServer(), platform().notifications().workspaceCenter(), SpaceManager::shared());
    observer_->refresh();
    controller_.emplace(platform(), SpaceManager::shared(), PreferencesStore::shared(),
                        [] { PreferencesWindowController::shared().showWindow(); });
  }

  void end() { controller_.reset(); }

  SpaceManager& manager() { return SpaceManager::shared(); }

  /// The items of the open menu from the top: the names of desktops, "-" and the titles of commands.
  Texts items() {
    Texts texts;
    for (std::size_t row = 0; row < desktop.menu()->items().size(); ++row) {
      const MenuItem& item = desktop.menu()->items()[row];
      if (const auto* command = std::get_if<CommandItem>(&item)) {
        texts.push_back(command->title);
      } else {
        texts.push_back(std::holds_alternative<SeparatorItem>(item) ? "-" : label(row).text);
      }
    }
    return texts;
  }

  static Texts withCommands(Texts names) {
    names.insert(names.end(), commands.begin(), commands.end());
    return names;
  }

  const SpaceRowView& row(std::size_t index) {
    return dynamic_cast<const SpaceRowView&>(*std::get<ViewItem>(desktop.menu()->items().at(index)).view);
  }

  ShownElement<platform::TextElement> label(std::size_t index) {
    return elementAt<platform::TextElement>(row(index).content(), 1);
  }

  platform::Shape dot(std::size_t index) {
    return elementAt<platform::ImageElement>(row(index).content(), 0).image.shapes.at(0);
  }

  void renames(std::size_t index, const std::string& name) {
    user.clicksRowButton(index);
    user.types(name);
    user.pressesKey(platform::keyCode::returnKey);
  }

 private:
  std::optional<SpaceObserver> observer_;
  std::optional<MenuBarController> controller_;
};

TEST_F(DesktopMenuTest, SaysOfEachRowWhatItIsForThoseWhoDoNotDrawIt) {
  openMenu();
  manager().setName("Mail", manager().spaces().at(1));
  openMenu();
  const auto row = [this](std::size_t index) -> const ViewItem& {
    return std::get<ViewItem>(desktop.menu()->items().at(index));
  };
  EXPECT_EQ(row(0).description, "Desktop 1");
  EXPECT_EQ(row(0).state, platform::RowState::Chosen);
  EXPECT_EQ(row(1).description, "Mail");
  EXPECT_EQ(row(1).state, platform::RowState::Ordinary);
}

TEST_F(DesktopMenuTest, ListsTheDesktopsThenTheCommands) {
  openMenu();
  EXPECT_EQ(items(), withCommands({"Desktop 1", "Desktop 2", "Desktop 3"}));
}

TEST_F(DesktopMenuTest, HasKeyEquivalentsForItsCommands) {
  openMenu();
  EXPECT_EQ(std::get<CommandItem>(desktop.menu()->items().at(4)).keyEquivalent, ",");
  EXPECT_EQ(std::get<CommandItem>(desktop.menu()->items().at(6)).keyEquivalent, "q");
}

TEST_F(DesktopMenuTest, MakesRowsOfTheirSizeForTheirDesktops) {
  openMenu();
  for (std::size_t index = 0; index < 3; ++index) {
    EXPECT_EQ(row(index).frame().size, (platform::Size{220.0, 24.0}));
    EXPECT_EQ(row(index).space(), manager().spaces()[index]);
  }
}

TEST_F(DesktopMenuTest, HasTheDesktopsAsWhatItsRowsStandFor) {
  openMenu();
  for (std::size_t index = 0; index < 3; ++index) {
    const SpaceInfo& space = row(index).space();
    EXPECT_EQ(std::get<ViewItem>(desktop.menu()->items().at(index)).representedObject,
              platform::Value(platform::Value::Dictionary{{"spaceID", static_cast<std::int64_t>(space.spaceID)},
                                                          {"uuid", space.uuid},
                                                          {"displayUUID", space.displayUUID},
                                                          {"type", std::int64_t{0}}}));
  }
}

TEST_F(DesktopMenuTest, LeavesFullScreenSpacesOut) {
  desktop.enterFullScreen();
  openMenu();
  EXPECT_EQ(manager().spaces().size(), 4U);
  EXPECT_EQ(items(), withCommands({"Desktop 1", "Desktop 2", "Desktop 3"}));
}

TEST_F(DesktopMenuTest, HoldsOnlyTheCommandsWithoutDesktops) {
  desktop.overrideManagedDisplaySpaces(platform::Value());
  openMenu();
  EXPECT_EQ(items(), commands);
}

TEST_F(DesktopMenuTest, ListsTheDesktopsOfAllDisplaysAsOne) {
  desktop.addDisplay("Display 2", 2);
  openMenu();
  EXPECT_EQ(items(), withCommands({"Desktop 1", "Desktop 2", "Desktop 3", "Desktop 1", "Desktop 2"}));
  EXPECT_EQ(row(3).space().displayUUID, "Display 2");
}

TEST_F(DesktopMenuTest, ListsTwentyDesktops) {
  for (int more = 0; more < 17; ++more) {
    desktop.addDesktop();
  }
  openMenu();
  EXPECT_EQ(desktop.menu()->items().size(), 24U);
  EXPECT_EQ(label(19).text, "Desktop 20");
}

TEST_F(DesktopMenuTest, MarksTheActiveDesktopAlone) {
  desktop.switchTo(desktop.desktopAt(1));
  openMenu();
  for (std::size_t index = 0; index < 3; ++index) {
    const bool active = index == 1;
    EXPECT_EQ(label(index).font.weight, active ? platform::FontWeight::Semibold : platform::FontWeight::Regular);
    EXPECT_EQ(dot(index).lineWidth.has_value(), !active);
  }
}

TEST_F(DesktopMenuTest, MarksNoDesktopOnAFullScreenSpace) {
  desktop.enterFullScreen();
  openMenu();
  for (std::size_t index = 0; index < 3; ++index) {
    EXPECT_TRUE(dot(index).lineWidth) << index;
  }
}

TEST_F(DesktopMenuTest, ColoursTheDotsAsTheModeHasIt) {
  start();
  PreferencesStore& store = PreferencesStore::shared();
  store.setSpaceColors({{manager().spaces()[1].uuid, {{0.1, 0.2, 0.3, 1.0}, {0.4, 0.5, 0.6, 1.0}}}});
  openMenu();
  EXPECT_EQ(dot(0).color, (platform::Color{1.0, 0.71, 0.76, 1.0}));
  EXPECT_EQ(dot(1).color, (platform::Color{0.4, 0.5, 0.6, 1.0}));
  store.setColorMode(ColorMode::ColorForeground);
  EXPECT_EQ(dot(1).color, (platform::Color{0.4, 0.5, 0.6, 1.0}));
  openMenu();
  EXPECT_EQ(dot(1).color, (platform::Color{0.1, 0.2, 0.3, 1.0}));
}

TEST_F(DesktopMenuTest, IsMadeAnewForEachOpening) {
  openMenu();
  desktop.addDesktop();
  EXPECT_EQ(items(), withCommands({"Desktop 1", "Desktop 2", "Desktop 3"}));
  manager().setName("Mail", manager().spaces()[3]);
  openMenu();
  EXPECT_EQ(items(), withCommands({"Desktop 1", "Desktop 2", "Desktop 3", "Mail"}));
}

TEST_F(DesktopMenuTest, SwitchesToTheDesktopOfTheRow) {
  openMenu();
  user.clicksRow(2);
  EXPECT_EQ(desktop.menu(), nullptr);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
  desktop.advance(5s);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(2));
}

TEST_F(DesktopMenuTest, StaysOnTheActiveDesktopForItsOwnRow) {
  openMenu();
  user.clicksRow(0);
  desktop.advance(5s);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
}

TEST_F(DesktopMenuTest, StaysWhereTheDesktopOfTheRowHasGoneMeanwhile) {
  openMenu();
  desktop.removeDesktop(desktop.desktopAt(2));
  user.clicksRow(2);
  desktop.advance(5s);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
}

TEST_F(DesktopMenuTest, SwitchesInTheStyleThatIsPreferredWhenTheMenuHasGone) {
  openMenu();
  user.clicksRow(1);
  PreferencesStore::shared().setInstantMenuSwitch(true);
  desktop.advance(0s);
  PreferencesStore::shared().setInstantMenuSwitch(false);
  // An animated swipe would not have ended yet.
  desktop.advance(desktop.dock().settlingTime() + 10ms);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(1));
}

TEST_F(DesktopMenuTest, SwitchesNowhereOnceTheStatusItemHasGone) {
  openMenu();
  user.clicksRow(2);
  end();
  desktop.advance(5s);
  EXPECT_EQ(desktop.activeSpace(), desktop.desktopAt(0));
}

TEST_F(DesktopMenuTest, SwitchesToTheDesktopItListedWhereverThatIsNow) {
  openMenu();
  const platform::SpaceID third = desktop.desktopAt(2);
  desktop.moveDesktop(third, 1);
  user.clicksRow(2);
  desktop.advance(5s);
  EXPECT_EQ(desktop.activeSpace(), third);
}

TEST_F(DesktopMenuTest, ShowsANewNameAtOnceInTheStatusBarAndInTheNextOpening) {
  openMenu();
  renames(0, "Mail");
  EXPECT_EQ(desktop.statusItem()->content().title.text, " Mail ");
  EXPECT_EQ(label(0).text, "Mail");
  openMenu();
  EXPECT_EQ(label(0).text, "Mail");
}

TEST_F(DesktopMenuTest, TakesTheBlanksOffANewNameByTheNextOpening) {
  openMenu();
  renames(1, "  Mail ");
  EXPECT_EQ(label(1).text, "  Mail ");
  openMenu();
  EXPECT_EQ(label(1).text, "Mail");
}

TEST_F(DesktopMenuTest, BringsTheDefaultTitleBackForABlankName) {
  start();
  manager().setName("Mail", manager().spaces()[1]);
  openMenu();
  renames(1, " ");
  EXPECT_EQ(label(1).text, "Mail");
  openMenu();
  EXPECT_EQ(label(1).text, "Desktop 2");
}

TEST_F(DesktopMenuTest, RenamesTheDesktopItListedAlthoughThatHasGone) {
  openMenu();
  const SpaceInfo third = manager().spaces()[2];
  desktop.removeDesktop(third.spaceID);
  renames(2, "Mail");
  EXPECT_EQ(manager().displayName(third), "Mail");
  openMenu();
  EXPECT_EQ(items(), withCommands({"Desktop 1", "Desktop 2"}));
}

TEST_F(DesktopMenuTest, LosesAnEditThatWasNotCommitted) {
  openMenu();
  user.clicksRowButton(0);
  user.types("Mail");
  openMenu();
  EXPECT_EQ(label(0).text, "Desktop 1");
  EXPECT_FALSE(label(0).hidden);
}

TEST_F(DesktopMenuTest, BringsThePreferencesToTheFront) {
  openMenu();
  EXPECT_EQ(desktop.tabbedWindow(), nullptr);
  user.clicksCommand("Preferences\u2026");
  ASSERT_NE(desktop.tabbedWindow(), nullptr);
  EXPECT_TRUE(desktop.tabbedWindow()->isVisible());
  EXPECT_EQ(platform().application().activations(), 1);
  EXPECT_EQ(desktop.menu(), nullptr);
}

TEST_F(DesktopMenuTest, BringsTheSamePreferencesBack) {
  openMenu();
  user.pressesCommandKey(",");
  user.closesWindow();
  openMenu();
  user.pressesCommandKey(",");
  EXPECT_EQ(desktop.windows().tabbed().size(), 1U);
  EXPECT_TRUE(desktop.tabbedWindow()->isVisible());
  EXPECT_EQ(platform().application().activations(), 2);
}

TEST_F(DesktopMenuTest, Quits) {
  openMenu();
  EXPECT_FALSE(platform().application().isTerminated());
  user.clicksCommand("Quit Plinkhaven");
  EXPECT_TRUE(platform().application().isTerminated());
}

TEST_F(DesktopMenuTest, QuitsByItsKey) {
  openMenu();
  user.pressesCommandKey("q");
  EXPECT_TRUE(platform().application().isTerminated());
}

}  // namespace
}  // namespace roomlattice::tests
