#include "spaces/NameExchange.h"

#include "tests/spaces/NameExchangeFixture.h"

#include <utility>
#include <vector>

namespace roomlattice::tests {
namespace {

/// What an environment may make of names, other than a user's rename.
class NameExchangeAnswersTest : public NameExchangeFixture {
 protected:
  /// The program runs, with one name that is kept and given to the environment.
  void beginWithAKeptName() {
    keep(2, "Web");
    callThere({"Mail", "Web", "Workspace 3"});
    begin();
    desktop.advance(5s);
  }

  /// The same with two names of our own in place of the environment's.
  void beginWithTwoKeptNames() {
    keep(1, "Letters");
    keep(2, "Web");
    callThere({"one", "two", "three"});
    begin();
    desktop.advance(5s);
  }
};

TEST_F(NameExchangeAnswersTest, KeepsANameThatIsRefused) {
  beginWithAKeptName();
  desktop.names().answer = [](const std::string&, const std::string&) { return std::nullopt; };
  setName(3, "Chat");
  desktop.advance(60s);
  EXPECT_EQ(shown(), "Mail Web Chat");
  EXPECT_EQ(desktop.names().wishes(), 1);
}

TEST_F(NameExchangeAnswersTest, RepeatsNoWishThatIsRefusedRightAfterTheStart) {
  keep(2, "Web");
  callThere({"Mail", "News", "Workspace 3"});
  desktop.names().answer = [](const std::string&, const std::string&) { return std::nullopt; };
  begin();
  desktop.advance(500ms);
  setName(2, "Chat");
  desktop.advance(60s);
  EXPECT_EQ(shown(), "Mail Chat 3");
  EXPECT_EQ(desktop.names().wishes(), 1);
}

TEST_F(NameExchangeAnswersTest, KeepsANameThatIsTakenBack) {
  beginWithAKeptName();
  for (const std::size_t number : {1U, 2U, 3U}) {
    const std::string before = there()[number - 1];
    setName(number, "Chat");
    desktop.advance(200ms);
    nameThere(number, before);
    desktop.advance(60s);
  }
  EXPECT_EQ(shown(), "Chat Chat Chat");
  EXPECT_EQ(there(), (Texts{"Mail", "Web", "Workspace 3"}));
  EXPECT_EQ(desktop.names().wishes(), 3);
}

TEST_F(NameExchangeAnswersTest, KeepsANameThatIsCut) {
  beginWithAKeptName();
  desktop.names().answer = [](const std::string&, const std::string& name) { return name.substr(0, 4); };
  setName(3, "Correspondence");
  desktop.advance(60s);
  EXPECT_EQ(shown(), "Mail Web Correspondence");
  EXPECT_EQ(there()[2], "Corr");
  EXPECT_EQ(desktop.names().wishes(), 1);
}

TEST_F(NameExchangeAnswersTest, KeepsTheDefaultWhereTheOldNameStays) {
  beginWithAKeptName();
  desktop.names().answer = [](const std::string&, const std::string&) { return std::nullopt; };
  setName(1, "");
  setName(2, "");
  desktop.advance(60s);
  setName(3, "Chat");
  EXPECT_EQ(shown(), "1 2 Chat");
}

TEST_F(NameExchangeAnswersTest, AsksForNoOtherNumberInPlaceOfOne) {
  callThere({"Workspace 1", "7", "Workspace 3"});
  begin();
  desktop.advance(5s);
  desktop.names().answer = [](const std::string&, const std::string&) { return std::nullopt; };
  setName(2, "Web");
  desktop.advance(5s);
  setName(2, "");
  desktop.advance(5s);
  EXPECT_EQ(shown(), "1 2 3");
  EXPECT_EQ(desktop.names().wishes(), 1);
}

TEST_F(NameExchangeAnswersTest, GivesInToAProgramThatInsistsOnItsName) {
  beginWithAKeptName();
  desktop.names().answer = [](const std::string&, const std::string&) { return "Insisted"; };
  setName(3, "Chat");
  desktop.advance(60s);
  EXPECT_EQ(shown(), "Mail Web Insisted");
  setName(3, "Chat");
  desktop.advance(60s);
  EXPECT_EQ(desktop.names().wishes(), 2);
}

TEST_F(NameExchangeAnswersTest, KeepsNamesWhenTheEnvironmentNumbersAllDesktopsAnew) {
  keep(1, "Mail");
  keep(2, "Web");
  callThere({"Workspace 1", "Workspace 2", "Workspace 3"});
  begin();
  desktop.advance(5s);
  ASSERT_EQ(there(), (Texts{"Mail", "Web", "Workspace 3"}));
  callThere({"Workspace 1", "Workspace 2", "Workspace 3"});
  desktop.advance(5s);
  EXPECT_EQ(shown(), "Mail Web 3");
}

TEST_F(NameExchangeAnswersTest, KeepsNamesWhenTheEnvironmentSetsItsOwnAnew) {
  beginWithTwoKeptNames();
  callThere({"one", "two", "three"});
  desktop.advance(5s);
  EXPECT_EQ(shown(), "Letters Web three");
}

TEST_F(NameExchangeAnswersTest, KeepsANameThatIsSetAnewBesideARename) {
  beginWithTwoKeptNames();
  callThere({"News", "two", "three"});
  desktop.advance(5s);
  EXPECT_EQ(shown(), "News Web three");
}

TEST_F(NameExchangeAnswersTest, KeepsANameWhenDesktopsAreNumberedAnewBecauseOneWasMade) {
  beginWithAKeptName();
  desktop.addDesktop();
  desktop.advance(100ms);
  nameThere(2, "Workspace 2");
  desktop.advance(60s);
  EXPECT_EQ(shown(), "Mail Web 3 4");
}

TEST_F(NameExchangeAnswersTest, KeepsANameWhenDesktopsAreNumberedAnewBecauseOneHasGone) {
  beginWithAKeptName();
  desktop.removeDesktop(desktop.desktopAt(2));
  desktop.advance(100ms);
  nameThere(2, "Workspace 2");
  desktop.advance(60s);
  EXPECT_EQ(shown(), "Mail Web");
}

TEST_F(NameExchangeAnswersTest, GivesKeptNamesToAnEnvironmentThatHasSetItsOwnLate) {
  keep(2, "Web");
  callThere({"Mail", "Web", "Workspace 3"});
  begin();
  desktop.advance(500ms);
  callThere({"one", "two", "three"});
  EXPECT_EQ(shown(), "one Web three");
  desktop.advance(60s);
  EXPECT_EQ(shown(), "one Web three");
  EXPECT_EQ(there(), (Texts{"one", "Web", "three"}));
  EXPECT_EQ(desktop.names().wishes(), 1);
}

TEST_F(NameExchangeAnswersTest, GivesNamesOfDesktopsThatComeAndTakesTheirs) {
  keep(4, "Chat");
  beginWithAKeptName();
  callThere({"Mail", "Web", "Workspace 3", "Workspace 4", "News"});
  desktop.addDesktop();
  desktop.addDesktop();
  EXPECT_EQ(shown(), "Mail Web 3 Chat News");
  desktop.advance(0s);
  EXPECT_EQ(desktop.names().all()->at(uuid(4)), "Chat");
}

TEST_F(NameExchangeAnswersTest, LetsNamesGoWithTheirDesktops) {
  beginWithAKeptName();
  nameThere(3, "Chat");
  const SpaceInfo gone = manager().spaces().front();
  desktop.removeDesktop(desktop.desktopAt(0));
  desktop.moveDesktop(desktop.desktopAt(1), 0);
  desktop.advance(5s);
  EXPECT_EQ(shown(), "Chat Web");
  EXPECT_EQ(manager().displayName(gone), "Desktop");
  EXPECT_EQ(desktop.names().wishes(), 0);
}

TEST_F(NameExchangeAnswersTest, HasNoNamesOfFullScreenSpaces) {
  beginWithAKeptName();
  nameThere(4, "Film");
  desktop.enterFullScreen();
  EXPECT_EQ(shown(), "Mail Desktop Web 3");
  nameThere(4, "Slides");
  desktop.advance(5s);
  EXPECT_EQ(shown(), "Mail Desktop Web 3");
}

TEST_F(NameExchangeAnswersTest, EndsTheNameOfADesktopThatBecomesAFullScreenSpace) {
  beginWithAKeptName();
  std::vector<SpaceInfo> spaces = manager().spaces();
  spaces.front().type = platform::simulated::spaceType::fullScreen;
  manager().update(std::move(spaces), manager().activeSpaceID());
  EXPECT_EQ(shown(), "Desktop Web 2");
}

TEST_F(NameExchangeAnswersTest, EndsWithTheProgram) {
  beginWithAKeptName();
  setName(3, "Chat");
  end();
  nameThere(1, "Letters");
  desktop.advance(60s);
  begin();
  EXPECT_EQ(shown(), "Letters Web Chat");
}

}  // namespace
}  // namespace roomlattice::tests
