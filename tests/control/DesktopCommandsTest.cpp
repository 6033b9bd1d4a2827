#include "control/DesktopCommands.h"

#include "tests/control/CommandsFixture.h"

#include <gmock/gmock.h>

namespace roomlattice::tests {
namespace {

using platform::CommandResult;
using platform::DesktopState;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr CommandResult accepted = std::nullopt;

constexpr const char* fromFullScreen = "there is no way from a full-screen space to a desktop";
constexpr const char* nothingInFront = "no desktop is in front";

class DesktopCommandsTest : public CommandsFixture {
 protected:
  using CommandsFixture::CommandsFixture;

  static std::string messageOf(const CommandResult& result) { return result ? result->message : ""; }

  /// The desktops are there, and the active one is none of them.
  void showNothingInFront() {
    desktop.overrideActiveSpace(4711);
    desktop.reportActiveSpaceChange();
  }

  std::vector<double> labelAlphas() {
    std::vector<double> alphas;
    for (const platform::simulated::SimulatedWindow* window : desktop.windows().overlays()) {
      alphas.push_back(window->alpha());
    }
    return alphas;
  }
};

class DesktopCommandsOfOneDesktopTest : public DesktopCommandsTest {
 protected:
  DesktopCommandsOfOneDesktopTest() : DesktopCommandsTest(1) {}
};

TEST_F(DesktopCommandsTest, AreServedWhileTheProgramRuns) {
  EXPECT_NE(platform().control().commands(), nullptr);
  quitProgram();
  EXPECT_EQ(platform().control().commands(), nullptr);
}

TEST_F(DesktopCommandsTest, ListTheDesktopsAsTheMenuShowsThem) {
  ASSERT_EQ(commands().rename("2", "Mail"), accepted);
  const std::vector<DesktopState> desktops = commands().desktops();
  ASSERT_THAT(desktops, SizeIs(3));
  EXPECT_EQ(desktops[1].number, 2);
  EXPECT_EQ(desktops[1].name, "Mail");
  EXPECT_EQ(desktops[1].color, PreferencesStore::shared().desktopColors().usedColor(desktops[1].uuid).color());
  EXPECT_EQ(desktops[1].uuid, SpaceManager::shared().spaces()[1].uuid);
  EXPECT_EQ(desktops[1].display, "Display 1");
  EXPECT_FALSE(desktops[1].isActive);
  EXPECT_TRUE(desktops[0].isActive);
}

TEST_F(DesktopCommandsTest, ListFullScreenSpacesWithoutANumber) {
  desktop.enterFullScreen();
  const std::vector<DesktopState> desktops = commands().desktops();
  ASSERT_THAT(desktops, SizeIs(4));
  EXPECT_EQ(desktops[1].number, std::nullopt);
  EXPECT_EQ(desktops[2].number, 2);
  EXPECT_EQ(commands().currentDesktop(), desktops[1]);
}

TEST_F(DesktopCommandsTest, NumberTheDesktopsOfAllDisplaysThrough) {
  desktop.addDisplay("Display 2", 2);
  desktop.reportActiveSpaceChange();
  EXPECT_THAT(names(), ElementsAre("Desktop 1", "Desktop 2", "Desktop 3", "Desktop 1", "Desktop 2"));
  EXPECT_EQ(commands().desktops().back().number, 5);
  EXPECT_EQ(commands().desktops().back().display, "Display 2");
  EXPECT_EQ(kindOf(commands().switchTo("Desktop 2")), Kind::AmbiguousDesktop);
}

TEST_F(DesktopCommandsTest, TellTheOneInFront) {
  desktop.switchTo(desktop.desktopAt(2));
  EXPECT_EQ(commands().currentDesktop(), commands().desktops()[2]);
  desktop.overrideManagedDisplaySpaces(platform::Value());
  desktop.reportActiveSpaceChange();
  EXPECT_EQ(commands().currentDesktop(), std::nullopt);
}

TEST_F(DesktopCommandsTest, SwitchByNumberNameAndBeginning) {
  ASSERT_EQ(commands().rename("2", "Mail"), accepted);
  for (const auto& [text, index] :
       std::vector<std::pair<std::string, std::size_t>>{{"3", 2}, {"Mail", 1}, {"desk", 9}}) {
    const CommandResult result = commands().switchTo(text);
    desktop.advance(2s);
    if (index == 9) {
      EXPECT_EQ(kindOf(result), Kind::AmbiguousDesktop);
    } else {
      EXPECT_EQ(result, accepted);
      EXPECT_TRUE(isOnDesktop(index)) << text;
    }
  }
}

TEST_F(DesktopCommandsTest, RefuseWhatIsNoDesktopAndNameThoseThereAre) {
  const CommandResult result = commands().switchTo("Nowhere");
  ASSERT_EQ(kindOf(result), Kind::NoSuchDesktop);
  EXPECT_THAT(result->message, HasSubstr("1 Desktop 1, 2 Desktop 2, 3 Desktop 3"));
  EXPECT_EQ(result->candidates, commands().desktops());
  desktop.advance(2s);
  EXPECT_TRUE(isOnDesktop(0));
}

TEST_F(DesktopCommandsTest, NeitherSwitchToAFullScreenSpaceNorFromOne) {
  desktop.enterFullScreen();
  const DesktopState space = *commands().currentDesktop();
  EXPECT_EQ(kindOf(commands().switchTo(space.uuid)), Kind::FullScreenDesktop);
  EXPECT_EQ(kindOf(commands().switchTo("2")), Kind::NotPossible);
  EXPECT_EQ(kindOf(commands().switchToNext()), Kind::NotPossible);
  EXPECT_EQ(kindOf(commands().switchToPrevious()), Kind::NotPossible);
  EXPECT_EQ(messageOf(commands().switchTo("2")), fromFullScreen);
  EXPECT_EQ(messageOf(commands().switchToNext()), fromFullScreen);
}

TEST_F(DesktopCommandsTest, SayWhereNothingIsInFrontToSwitchFrom) {
  showNothingInFront();
  for (const CommandResult& result : {commands().switchTo("2"), commands().switchToNext(),
                                      commands().switchToPrevious(), commands().renameCurrent("Mail")}) {
    EXPECT_EQ(kindOf(result), Kind::NotPossible);
    EXPECT_EQ(messageOf(result), nothingInFront);
  }
}

TEST_F(DesktopCommandsTest, StepToTheNeighborsAndNotBeyondTheEnds) {
  EXPECT_EQ(kindOf(commands().switchToPrevious()), Kind::NoFurtherDesktop);
  EXPECT_EQ(commands().switchToNext(), accepted);
  EXPECT_EQ(commands().switchToNext(), accepted);
  EXPECT_EQ(kindOf(commands().switchToNext()), Kind::NoFurtherDesktop);
  desktop.advance(3s);
  EXPECT_TRUE(isOnDesktop(2));
  for (const std::size_t index : {1U, 0U}) {
    EXPECT_EQ(commands().switchToPrevious(), accepted);
    desktop.advance(3s);
    EXPECT_TRUE(isOnDesktop(index));
  }
}

TEST_F(DesktopCommandsTest, RenameTheOneInFrontOrAnotherOne) {
  EXPECT_EQ(commands().renameCurrent(" Mail "), accepted);
  EXPECT_EQ(commands().rename("Desktop 3", "Web"), accepted);
  EXPECT_THAT(names(), ElementsAre("Mail", "Desktop 2", "Web"));
  EXPECT_EQ(desktop.statusItem()->content().title.text, " Mail ");
  EXPECT_EQ(commands().renameCurrent(""), accepted);
  EXPECT_EQ(commands().rename("Web", ""), accepted);
  EXPECT_THAT(names(), ElementsAre("Desktop 1", "Desktop 2", "Desktop 3"));
  EXPECT_EQ(kindOf(commands().rename("Web", "Mail")), Kind::NoSuchDesktop);
}

TEST_F(DesktopCommandsTest, RenameTheDesktopThatATourHasSetOutFrom) {
  ASSERT_EQ(commands().switchTo("2"), accepted);
  desktop.advance(3s);
  ASSERT_EQ(commands().startTour(), accepted);
  desktop.advance(450ms);
  ASSERT_TRUE(isOnDesktop(2));
  EXPECT_EQ(commands().renameCurrent("Mail"), accepted);
  EXPECT_THAT(names(), ElementsAre("Desktop 1", "Mail", "Desktop 3"));

  ASSERT_EQ(commands().startTour(), accepted) << "A tour that replaces another is part of the same absence.";
  EXPECT_EQ(commands().renameCurrent("Letters"), accepted);
  EXPECT_THAT(names(), ElementsAre("Desktop 1", "Letters", "Desktop 3"));

  desktop.advance(30s);
  ASSERT_TRUE(isOnDesktop(2));
  EXPECT_EQ(commands().renameCurrent("Web"), accepted) << "The tour is over.";
  EXPECT_THAT(names(), ElementsAre("Desktop 1", "Letters", "Web"));
}

TEST_F(DesktopCommandsTest, RefuseWhatIsNoName) {
  for (const std::string& name : {std::string(501, 'x'), std::string("two\nlines"), std::string("\x1b[31mred"),
                                  std::string(1, '\0'), std::string("\x7f")}) {
    EXPECT_EQ(kindOf(commands().renameCurrent(name)), Kind::InvalidName);
    EXPECT_EQ(kindOf(commands().rename("2", name)), Kind::InvalidName);
  }
  EXPECT_THAT(names(), ElementsAre("Desktop 1", "Desktop 2", "Desktop 3"));
  EXPECT_EQ(commands().renameCurrent(std::string(500, 'x')), accepted);
}

TEST_F(DesktopCommandsTest, ShowAndHideTheLabels) {
  EXPECT_EQ(commands().showLabels(), accepted);
  desktop.advance(1s);
  EXPECT_THAT(labelAlphas(), ::testing::Contains(1.0));
  EXPECT_EQ(commands().hideLabels(), accepted);
  desktop.advance(1s);
  EXPECT_THAT(labelAlphas(), ::testing::Each(::testing::Lt(1.0)));
}

TEST_F(DesktopCommandsTest, SayWhereShowingLabelsIsSwitchedOff) {
  PreferencesStore::shared().setShowSignAfterSelection(false);
  EXPECT_EQ(kindOf(commands().showLabels()), Kind::NotPossible);
}

TEST_F(DesktopCommandsTest, OpenTheMenuOnceItHasBeenAnswered) {
  EXPECT_EQ(commands().openMenu(), accepted);
  EXPECT_EQ(desktop.menu(), nullptr);
  desktop.advance(0s);
  const auto opened = desktop.menu();
  EXPECT_NE(opened, nullptr);
  EXPECT_EQ(commands().openMenu(), accepted);
  desktop.advance(0s);
  EXPECT_EQ(desktop.menu(), opened);
}

TEST_F(DesktopCommandsTest, OpenThePreferences) {
  EXPECT_EQ(commands().openPreferences(), accepted);
  desktop.advance(0s);
  ASSERT_NE(desktop.tabbedWindow(), nullptr);
  EXPECT_EQ(platform().application().activations(), 1);
}

TEST_F(DesktopCommandsTest, StartTheTour) {
  const auto before = desktop.log().texts().size();
  EXPECT_EQ(commands().startTour(), accepted);
  desktop.advance(30s);
  const std::vector<std::string> all = desktop.log().texts();
  EXPECT_THAT(std::vector(all.begin() + static_cast<std::ptrdiff_t>(before), all.end()),
              ElementsAre("[Roomlattice] tour start: 4 steps", "[Roomlattice] tour end"));
}

TEST_F(DesktopCommandsOfOneDesktopTest, SayThatThereIsNothingToTour) {
  EXPECT_EQ(kindOf(commands().startTour()), Kind::NotPossible);
}

TEST_F(DesktopCommandsTest, TourNothingFromAFullScreenSpace) {
  desktop.enterFullScreen();
  const CommandResult result = commands().startTour();
  EXPECT_EQ(kindOf(result), Kind::NotPossible);
  EXPECT_EQ(messageOf(result), fromFullScreen);
}

TEST_F(DesktopCommandsTest, TourNothingWhileNothingIsInFront) {
  showNothingInFront();
  const CommandResult result = commands().startTour();
  EXPECT_EQ(kindOf(result), Kind::NotPossible);
  EXPECT_EQ(messageOf(result), nothingInFront);
}

TEST_F(DesktopCommandsTest, QuitOnceItHasBeenAnswered) {
  EXPECT_EQ(commands().quit(), accepted);
  EXPECT_FALSE(platform().application().isTerminated());
  desktop.advance(0s);
  EXPECT_TRUE(platform().application().isTerminated());
}

TEST_F(DesktopCommandsTest, DoNothingLateForAProgramThatHasGone) {
  ASSERT_EQ(commands().openMenu(), accepted);
  quitProgram();
  desktop.advance(1s);
  EXPECT_EQ(desktop.menu(), nullptr);
}

class DesktopCommandsChangesTest : public DesktopCommandsTest {
 protected:
  /// The changes as "kind number name".
  std::vector<std::string> lines_;
  /// How many times there were any.
  int moments_ = 0;

 private:
  static std::string text(const platform::DesktopChange& change) {
    static const std::vector<std::string> kinds{"switched", "added", "removed", "moved", "renamed", "recolored"};
    return kinds.at(static_cast<std::size_t>(change.kind)) + " " + std::to_string(change.desktop.number.value_or(0)) +
           " " + change.desktop.name;
  }

  platform::Registration observation_ = commands().observe([this](const std::vector<platform::DesktopChange>& changes) {
    ++moments_;
    for (const platform::DesktopChange& change : changes) {
      lines_.push_back(text(change));
    }
  });
};

TEST_F(DesktopCommandsChangesTest, AreToldForEachSwitch) {
  desktop.switchTo(desktop.desktopAt(1));
  EXPECT_THAT(lines_, ElementsAre("switched 2 Desktop 2"));
  desktop.reportActiveSpaceChange();
  EXPECT_THAT(lines_, SizeIs(1));
}

TEST_F(DesktopCommandsChangesTest, AreToldForNamesAndColors) {
  commands().rename("2", "Mail");
  EXPECT_THAT(lines_, ElementsAre("renamed 2 Mail"));
  commands().rename("2", "Mail");
  EXPECT_THAT(lines_, SizeIs(1));
  SpaceColors colors;
  colors[commands().desktops()[1].uuid] = {{1.0, 0.0, 0.0, 1.0}, {1.0, 0.0, 0.0, 1.0}};
  PreferencesStore::shared().setSpaceColors(colors);
  EXPECT_THAT(lines_, ElementsAre("renamed 2 Mail", "recolored 2 Mail"));
}

TEST_F(DesktopCommandsChangesTest, AreToldForNoSwitchWhereTheOneInFrontHasAnotherName) {
  commands().renameCurrent("Mail");
  EXPECT_THAT(lines_, ElementsAre("renamed 1 Mail"));
}

TEST_F(DesktopCommandsChangesTest, AreToldForNamesThatTheEnvironmentGivesAndTakesAway) {
  desktop.names().replace(platform::DesktopNames::Names{{commands().desktops()[1].uuid, "Mail"}});
  EXPECT_THAT(lines_, ElementsAre("renamed 2 Mail"));
  desktop.names().replace(std::nullopt);
  EXPECT_THAT(lines_, ElementsAre("renamed 2 Mail", "renamed 2 Desktop 2"));
}

TEST_F(DesktopCommandsChangesTest, AreToldForDesktopsThatComeAndGo) {
  const platform::SpaceID added = desktop.addDesktop();
  EXPECT_THAT(lines_, ElementsAre("added 4 Desktop 4"));
  desktop.removeDesktop(added);
  EXPECT_THAT(lines_, ElementsAre("added 4 Desktop 4", "removed 4 Desktop 4"));
}

TEST_F(DesktopCommandsChangesTest, AreToldForThoseBehindOneThatGoes) {
  desktop.removeDesktop(desktop.desktopAt(1));
  EXPECT_THAT(lines_,
              ElementsAre("removed 2 Desktop 2", "moved 2 Desktop 2", "renamed 2 Desktop 2", "recolored 2 Desktop 2"));
}

TEST_F(DesktopCommandsChangesTest, AreToldForTheOneInFrontTogetherWithTheOnesThatGo) {
  desktop.removeDesktop(desktop.desktopAt(0));
  EXPECT_EQ(moments_, 1);
  EXPECT_EQ(lines_.front(), "removed 1 Desktop 1");
  EXPECT_EQ(lines_.back(), "switched 1 Desktop 1");
}

TEST_F(DesktopCommandsChangesTest, AreToldForTheOneInFrontTogetherWithAnotherThatComes) {
  std::vector<SpaceInfo> spaces = SpaceManager::shared().spaces();
  spaces.push_back({.spaceID = 4711, .uuid = "new", .displayUUID = spaces.front().displayUUID});
  SpaceManager::shared().update(spaces, spaces[1].spaceID);
  EXPECT_EQ(moments_, 1);
  EXPECT_THAT(lines_, ElementsAre("added 4 Desktop 4", "switched 2 Desktop 2"));
}

TEST_F(DesktopCommandsChangesTest, AreToldForOneThatComesToTheFront) {
  desktop.enterFullScreen();
  EXPECT_THAT(lines_, ElementsAre("added 0 Desktop", "switched 0 Desktop"));
}

TEST_F(DesktopCommandsChangesTest, AreToldForOneThatIsOnAnotherDisplayWithTheSameNumber) {
  std::vector<SpaceInfo> spaces = SpaceManager::shared().spaces();
  spaces.back().displayUUID = "Display 2";
  SpaceManager::shared().setName("Mail", spaces.back());
  lines_.clear();
  SpaceManager::shared().update(spaces, SpaceManager::shared().activeSpaceID());
  EXPECT_THAT(lines_, ElementsAre("moved 3 Mail"));
}

TEST_F(DesktopCommandsChangesTest, AreToldForAFullScreenSpaceThatGoesBeforeAnother) {
  const platform::SpaceID first =
      desktop.addDesktop({.type = platform::simulated::spaceType::fullScreen, .position = 1});
  desktop.addDesktop({.type = platform::simulated::spaceType::fullScreen, .position = 2});
  lines_.clear();
  desktop.removeDesktop(first);
  EXPECT_THAT(lines_, ElementsAre("removed 0 Desktop"));
}

TEST_F(DesktopCommandsChangesTest, AreNotToldForOtherSettings) {
  PreferencesStore::shared().setSignTextSize(99.0);
  EXPECT_THAT(lines_, IsEmpty());
}

}  // namespace
}  // namespace roomlattice::tests
